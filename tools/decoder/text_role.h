// SPDX-License-Identifier: GPL-3.0-or-later
// The role `text`: a stranger's page becomes the text that a browser would show, as platform/picture/page_text_protocol
// tells.
#pragma once

#include "role.h"

Role TextRole();
