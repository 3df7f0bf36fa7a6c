// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net/address_rules.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

struct Net4 {
  quint32 address;
  int bits;
};

constexpr quint32 Of(quint32 a, quint32 b, quint32 c = 0) {
  return a << 24U | b << 16U | c << 8U;
}

// Networks of special purpose that no public server has, from the registry of the IANA.
constexpr std::array kPrivate4 = {Net4{Of(0, 0), 8},       Net4{Of(10, 0), 8},     Net4{Of(100, 64), 10},
                                  Net4{Of(127, 0), 8},     Net4{Of(169, 254), 16}, Net4{Of(172, 16), 12},
                                  Net4{Of(192, 0, 0), 24}, Net4{Of(192, 168), 16}, Net4{Of(198, 18), 15},
                                  Net4{Of(224, 0), 4},     Net4{Of(240, 0), 4}};

bool IsPrivate4(quint32 address) {
  return std::any_of(kPrivate4.begin(), kPrivate4.end(),
                     [address](const Net4& net) { return (address ^ net.address) >> (32 - net.bits) == 0; });
}

quint32 Ipv4At(const Q_IPV6ADDR& address, int from) {
  quint32 value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8U | address[from + i];
  return value;
}

bool BeginsWith(const Q_IPV6ADDR& address, std::initializer_list<quint8> bytes) {
  return std::memcmp(&address, bytes.begin(), bytes.size()) == 0;
}

bool IsPrivate6(const Q_IPV6ADDR& address) {
  // fc00::/7 is unique-local, fe80::/10 link-local, fec0::/10 its forerunner, ff00::/8 multicast.
  if ((address[0] & 0xFEU) == 0xFC || address[0] == 0xFF || (address[0] == 0xFE && address[1] >= 0x80)) return true;
  // IPv4 within IPv6: mapped (::ffff:a.b.c.d), compatible and loopback (::/96), translated (64:ff9b::/96 and, for local
  // use, 64:ff9b:1::/48), 6to4 (2002::/16). A Teredo address (2001:0::/32) leads to any of them.
  if (BeginsWith(address, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF}) ||
      BeginsWith(address, {0, 0x64, 0xFF, 0x9B, 0, 0, 0, 0, 0, 0, 0, 0}))
    return IsPrivate4(Ipv4At(address, 12));
  if (BeginsWith(address, {0x20, 0x02})) return IsPrivate4(Ipv4At(address, 2));
  return BeginsWith(address, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) ||
         BeginsWith(address, {0, 0x64, 0xFF, 0x9B, 0, 1}) || BeginsWith(address, {0x20, 0x01, 0, 0});
}

}  // namespace

bool AddressRules::IsPrivate(const QHostAddress& address) const {
  switch (address.protocol()) {
    case QAbstractSocket::IPv4Protocol:
      return IsPrivate4(address.toIPv4Address());
    case QAbstractSocket::IPv6Protocol:
      return IsPrivate6(address.toIPv6Address());
    default:
      return true;  // no address at all
  }
}
