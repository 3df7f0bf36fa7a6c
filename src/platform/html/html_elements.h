// SPDX-License-Identifier: GPL-3.0-or-later
// A browser's own style of each HTML element, before any style sheet of the page. Called by html_style.
#pragma once

#include <gumbo.h>

#include <string_view>

#include "platform/html/element_style.h"

// Sets display, replacement, white space and floating of an element by its name and attributes. style: comes with what
// the element inherits from its parent. isQuirky: the page is shown as old browsers did.
void ApplyOwnRules(const GumboNode* element, bool isQuirky, ElementStyle* style);

// True for details that are not open: they show their summary alone.
bool IsClosed(const GumboNode* element);

// The value of an attribute, empty if there is none.
std::string_view AttributeOf(const GumboNode* element, const char* name);
