// SPDX-License-Identifier: GPL-3.0-or-later
// Which addresses belong to the user's own network. A public server must not lead a read there by a redirect.
// UrlNetwork takes one by constructor, so that a test can play both kinds on loopback.
#pragma once

#include <QHostAddress>

// Called on the network thread, so an object that overrides this keeps no state that changes.
class AddressRules {
 public:
  AddressRules() = default;
  virtual ~AddressRules() = default;
  Q_DISABLE_COPY_MOVE(AddressRules)

  // Loopback, private, shared (100.64/10), link-local and unique-local, unspecified, multicast and other addresses that
  // no public server has; of IPv6 also those that carry such an IPv4 address.
  virtual bool IsPrivate(const QHostAddress& address) const;
};
