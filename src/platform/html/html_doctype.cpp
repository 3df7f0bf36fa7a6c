// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_doctype.h"

#include <QByteArray>
#include <QLatin1StringView>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Public identifiers of the time before HTML 4.01, by their beginnings; from the list of the HTML standard.
constexpr QLatin1StringView kOldTypes[] = {
    "+//Silmaril//dtd html Pro v0r11 19970101//"_L1,
    "-//AS//DTD HTML 3.0 asWedit + extensions//"_L1,
    "-//AdvaSoft Ltd//DTD HTML 3.0 asWedit + extensions//"_L1,
    "-//IETF//DTD HTML"_L1,
    "-//Metrius//DTD Metrius Presentational//"_L1,
    "-//Microsoft//DTD Internet Explorer "_L1,
    "-//Netscape Comm. Corp.//DTD "_L1,
    "-//O'Reilly and Associates//DTD HTML "_L1,
    "-//SQ//DTD HTML 2.0 HoTMetaL + extensions//"_L1,
    "-//SoftQuad Software//DTD HoTMetaL PRO "_L1,
    "-//SoftQuad//DTD HoTMetaL PRO "_L1,
    "-//Spyglass//DTD HTML 2.0 Extended//"_L1,
    "-//Sun Microsystems Corp.//DTD HotJava "_L1,
    "-//W3C//DTD HTML 3 1995-03-24//"_L1,
    "-//W3C//DTD HTML 3.2"_L1,
    "-//W3C//DTD HTML 4.0 Frameset//"_L1,
    "-//W3C//DTD HTML 4.0 Transitional//"_L1,
    "-//W3C//DTD HTML Experimental "_L1,
    "-//W3C//DTD W3 HTML//"_L1,
    "-//W3O//DTD W3 HTML "_L1,
    "-//WebTechs//DTD Mozilla HTML "_L1,
};

// Identifiers of old pages only where no system identifier follows.
constexpr QLatin1StringView kOldIfAlone[] = {
    "-//W3C//DTD HTML 4.01 Frameset//"_L1,
    "-//W3C//DTD HTML 4.01 Transitional//"_L1,
};

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool Begins(QByteArrayView text, QLatin1StringView beginning) {
  return QLatin1StringView(text).startsWith(beginning, Qt::CaseInsensitive);
}

template <size_t Count>
bool BeginsWithOne(QByteArrayView text, const QLatin1StringView (&beginnings)[Count]) {
  return std::any_of(std::begin(beginnings), std::end(beginnings),
                     [text](QLatin1StringView beginning) { return Begins(text, beginning); });
}

// Takes a quoted text off the front; false if there is none.
bool TakeQuoted(QByteArrayView* text, QByteArrayView* quoted) {
  *text = text->trimmed();
  if (text->isEmpty() || (text->front() != '"' && text->front() != '\'')) return false;
  const qsizetype end = text->indexOf(text->front(), 1);
  if (end < 0) return false;
  *quoted = text->sliced(1, end - 1);
  *text = text->sliced(end + 1);
  return true;
}

// True if browsers show a page with this document type as old browsers did. text: what is written between "<!doctype"
// and its ">".
bool IsQuirky(QByteArrayView text) {
  text = text.trimmed();
  if (!Begins(text, "html"_L1)) return true;
  text = text.sliced(4);
  if (text.isEmpty()) return false;
  if (!IsSpace(text.front())) return true;
  text = text.trimmed();
  QByteArrayView publicId;
  QByteArrayView systemId;
  const bool isPublic = Begins(text, "public"_L1);
  if (!isPublic && !Begins(text, "system"_L1)) return !text.isEmpty();
  text = text.sliced(6);
  if (isPublic && !TakeQuoted(&text, &publicId)) return true;
  const bool hasSystemId = TakeQuoted(&text, &systemId);
  if (!isPublic) return !hasSystemId;
  const QLatin1StringView name(publicId);
  return BeginsWithOne(publicId, kOldTypes) || (!hasSystemId && BeginsWithOne(publicId, kOldIfAlone)) ||
         name.compare("html"_L1, Qt::CaseInsensitive) == 0 ||
         name.compare("-/W3C/DTD HTML 4.0 Transitional/EN"_L1, Qt::CaseInsensitive) == 0 ||
         Begins(systemId, "http://www.ibm.com/data/dtd/v11/ibmxhtml1-transitional.dtd"_L1);
}

}  // namespace

DocumentType ReadDocumentType(QByteArrayView html) {
  qsizetype at = 0;
  while (at < html.size()) {
    const QByteArrayView rest = html.sliced(at);
    if (IsSpace(rest.front())) {
      ++at;
      continue;
    }
    const bool isComment = rest.startsWith("<!--");
    const bool isInstruction = rest.startsWith("<?");
    const bool isType = Begins(rest, "<!doctype"_L1);
    if (!isComment && !isInstruction && !isType) return {};
    const QByteArrayView closing = isComment ? QByteArrayView("-->") : QByteArrayView(">");
    const qsizetype end = html.indexOf(closing, at + (isComment ? 4 : 2));
    if (end < 0) return {};
    at = end + closing.size();
    if (isType) return {at, IsQuirky(rest.first(end - (html.size() - rest.size())).sliced(9))};
  }
  return {};
}
