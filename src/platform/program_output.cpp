// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/program_output.h"

#include <QProcess>
#include <QTimer>
#include <chrono>

namespace {
constexpr std::chrono::seconds kPatience{3};
constexpr qint64 kMostBytes = 64 * 1024;
}  // namespace

void ReadProgramOutput(const QString& program, const QStringList& arguments, QObject* context,
                       const std::function<void(const std::optional<QByteArray>&)>& then) {
  auto* process = new QProcess(context);
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::finished, context, [process, then](int, QProcess::ExitStatus status) {
    process->deleteLater();
    if (status != QProcess::NormalExit) return then(std::nullopt);
    then(process->read(kMostBytes).trimmed());
  });
  QObject::connect(process, &QProcess::errorOccurred, context, [process, then](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    process->deleteLater();
    then(std::nullopt);
  });
  QTimer::singleShot(kPatience, process, &QProcess::kill);
  process->start(program, arguments, QIODevice::ReadOnly);
}
