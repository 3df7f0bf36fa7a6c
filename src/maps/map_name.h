// SPDX-License-Identifier: GPL-3.0-or-later
// The maps that the program has a formula for. The formulas, the projection and every map window speak of them by
// these values.
#pragma once

// None: a picture of the user's own, upon which nothing can be placed.
enum class MapName { None, NorthAmerica, Australia, NewZealand, Uk, NNederland, Europe, Japan, Asia, World };
