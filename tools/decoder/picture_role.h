// SPDX-License-Identifier: GPL-3.0-or-later
// The role `pictures`: decodes, scales and encodes, as each verb of platform/picture/picture_protocol wants it. main
// has it in its table.
#pragma once

#include "role.h"

Role PictureRole();
