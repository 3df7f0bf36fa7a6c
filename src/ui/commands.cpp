// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands.h"

void Commands::Register(Command command, QObject* context, Handler handler) {
  entries_.insert(command, {context, std::move(handler)});
}

bool Commands::Handles(Command command) const {
  return !entries_.value(command).context.isNull();
}

void Commands::Do(const MenuChoice& choice) const {
  // A copy: the handler may close the window that has registered it.
  const Entry entry = entries_.value(choice.command);
  if (!entry.context.isNull()) entry.handler(choice);
}
