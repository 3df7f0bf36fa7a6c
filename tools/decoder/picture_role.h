// SPDX-License-Identifier: GPL-3.0-or-later
// The role `pictures`: decodes, scales and encodes. What each verb of platform/picture/picture_protocol does.
#pragma once

#include "role.h"

Role PictureRole();
