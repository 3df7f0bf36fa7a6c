// SPDX-License-Identifier: GPL-3.0-or-later
// Changes the call database in FOLDER until it is killed: database_writer FOLDER VERSION SEED. Says "do CALL VERSION"
// before each change (version 0: a deletion) and "done" when it has been acknowledged.
#include <QCoreApplication>
#include <QRandomGenerator>
#include <cstdio>

#include "callbook/call_database.h"
#include "database_files.h"

namespace {

// Asks for the next change when the last one has been acknowledged.
class Writer : public QObject {
 public:
  Writer(const QString& folder, int version, quint32 seed) : database_(folder), version_(version), random_(seed) {
    database_.Begin();
  }

  void Next() {
    const QString call = QStringLiteral("K%1").arg(random_.bounded(4000), 4, 10, QLatin1Char('0'));
    const int kind = random_.bounded(20);
    const int version = kind == 0 ? 0 : ++version_;
    std::printf("do %s %d\n", qPrintable(call), version);
    std::fflush(stdout);
    if (kind == 0) {
      database_.DeleteRecord(call, this, [this](const Deletion& deletion) { Done(deletion.durable); });
    } else {
      database_.SaveStation(call, VersionOf(call, version), this, [this](bool durable) { Done(durable); });
    }
    if (kind == 1) database_.SortDatabase();
  }

 private:
  void Done(bool durable) {
    if (!durable) return QCoreApplication::exit(1);
    std::printf("done\n");
    std::fflush(stdout);
    Next();
  }

  CallDatabase database_;
  int version_;
  QRandomGenerator random_;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4) return 2;
  Writer writer(arguments.at(1), arguments.at(2).toInt(), arguments.at(3).toUInt());
  writer.Next();
  return QCoreApplication::exec();
}
