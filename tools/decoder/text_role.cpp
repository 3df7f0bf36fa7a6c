// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_role.h"

#include <QString>
#include <optional>

#include "platform/html/html_text.h"
#include "platform/picture/page_text_protocol.h"
#include "platform/text/ansi_text.h"

namespace {

constexpr quint64 kAddressSpace = 256ULL << 20;
static_assert(PageTextLimits::kPageBytes <= kMostHtml);

bool AnswerPage(const RoleJob& job, RoleOutput& output) {
  const std::optional<quint64> id = ReadPageJob(job.line);
  if (!id) return false;
  QByteArray text;
  if (job.sandboxed) text = HTMLDecode(AnsiText(job.body)).left(PageTextLimits::kTextCharacters).toUtf8();
  return output.Write(WritePageReply({*id, job.sandboxed}, text.size())) && output.Write(text);
}

// Turns a small page into text, so that whatever is set up at first use is set up before the sandbox is entered.
void Prepare() {
  HTMLDecode(QStringLiteral("<p style=text-transform:uppercase>a&nbsp;b</p>"));
}

}  // namespace

Role TextRole() {
  return {"text", kAddressSpace, PageTextLimits::kPageBytes, &Prepare, &AnswerPage};
}
