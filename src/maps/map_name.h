// SPDX-License-Identifier: GPL-3.0-or-later
// The maps for which the program has a formula. The formulas, the projection and every map window name them by these
// values.
#pragma once

// None: a picture of the user's own, upon which nothing can be placed.
enum class MapName { None, NorthAmerica, Australia, NewZealand, Uk, NNederland, Europe, Japan, Asia, World };
