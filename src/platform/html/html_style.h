// SPDX-License-Identifier: GPL-3.0-or-later
// How the elements of a page are laid out, as far as a text of the page can tell: a browser's own rules for each
// element, the page's style sheets and the elements' style attributes. Called by html_text.
#pragma once

#include <gumbo.h>

#include <QByteArray>
#include <QHash>
#include <array>
#include <string_view>
#include <vector>

#include "platform/html/element_style.h"

class HtmlTree;

// The styles of one page's elements.
class PageStyles {
 public:
  // Reads the page's style elements.
  explicit PageStyles(const HtmlTree& tree);

  // The style of an element whose parent has the given one.
  ElementStyle Of(const GumboNode* element, const ElementStyle& parent) const;

 private:
  // The properties that can change a text.
  enum Property { kDisplay, kVisibility, kWhiteSpace, kFloat, kPosition, kTransform, kProperties };
  // Whether a value is marked "!important".
  enum class Importance : quint8 { Normal, Important };

  // The values that a block of declarations sets, by property; empty: not set.
  struct Declarations {
    std::array<std::string_view, kProperties> values;
    std::array<Importance, kProperties> importance = {};
    bool IsEmpty() const;
  };

  // One part of a selector, such as "td.name", and whether ">" joins it to the part before it.
  struct Compound {
    QByteArray tag;
    QByteArray id;
    std::vector<QByteArray> classes;
    bool isChild = false;
  };

  // A rule of a sheet. Of two rules that set a property the one of the higher rank wins.
  struct Rule {
    std::vector<Compound> selector;
    Declarations declarations;
    quint32 rank = 0;
  };

  // The value of each property that has won so far, and its rank.
  struct Cascade {
    std::array<std::string_view, kProperties> values;
    std::array<quint32, kProperties> ranks = {};
    void Apply(const Declarations& declarations, quint32 rank);
  };

  static Declarations ReadDeclarations(std::string_view text);
  static bool ReadSelector(std::string_view text, std::vector<Compound>* selector);
  static bool ReadCompound(std::string_view text, Compound* compound);
  static bool IsForScreens(std::string_view query);
  void ReadStyleElements(const HtmlTree& tree);
  void ReadSheet(std::string_view sheet);
  void AddRules(std::string_view selectors, std::string_view block);
  void ApplySheets(const GumboNode* element, Cascade* cascade) const;
  bool Matches(const Rule& rule, const GumboNode* element) const;
  bool Matches(const Compound& compound, const GumboNode* element) const;
  bool HasWord(std::string_view words, const QByteArray& word) const;

  bool isQuirky_;
  std::vector<QByteArray> sheets_;
  std::vector<Rule> rules_;
  // Indexes of rules by what their last compound asks for: "#id", ".class", "tag" or nothing.
  QHash<QByteArray, std::vector<size_t>> rulesByKey_;
  // Comparisons that are still allowed; when none is left, the sheets are ignored.
  mutable int comparisons_;
};
