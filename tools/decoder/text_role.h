// SPDX-License-Identifier: GPL-3.0-or-later
// The role `text`: turns a stranger's page into the text that a browser would show, as
// platform/picture/page_text_protocol tells. main has it in its table.
#pragma once

#include "role.h"

Role TextRole();
