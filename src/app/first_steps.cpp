// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/first_steps.h"

#include <algorithm>

using namespace std::chrono_literals;

FirstSteps::FirstSteps(const Dependencies& dependencies, QObject* parent) : QObject(parent), deps_(dependencies) {
  later_.setSingleShot(true);
  later_.setInterval(0ms);
  connect(&later_, &QTimer::timeout, this, &FirstSteps::Changed);
}

void FirstSteps::ListsRead() {
  for (const SiteList list : {SiteList::Dsstv, SiteList::Wx}) {
    if (IsEmpty(list)) Find(list);
  }
  Look();
}

void FirstSteps::Find(SiteList list) {
  deps_.background.Run<std::optional<ListCopy>>(
      this, [folder = deps_.program.AppDataDir, list]() { return NewestCopy(folder, list); },
      [this](const std::optional<ListCopy>& copy) {
        if (!copy) return;
        copies_.append(*copy);
        Look();
      });
}

bool FirstSteps::IsEmpty(SiteList list) const {
  const SiteTable& sites = deps_.program.sites;
  return list == SiteList::Dsstv ? sites.Sites.isEmpty() : sites.WxSites.isEmpty();
}

bool FirstSteps::Shown() const {
  const bool onWeatherPage = !deps_.program.page.OnDsstvPage();
  return onWeatherPage ? Copy().has_value() : deps_.program.sites.lstThumbPos.isEmpty();
}

bool FirstSteps::LocationIsSet() const {
  const Config& config = deps_.program.config;
  return !config.MyCall.isEmpty() && (config.MyLat != 0 || config.MyLon != 0);
}

// No longer once the list has got sites in another way.
std::optional<ListCopy> FirstSteps::Copy() const {
  const SiteList list = ListOfPage();
  if (!IsEmpty(list)) return std::nullopt;
  const auto found =
      std::find_if(copies_.cbegin(), copies_.cend(), [list](const ListCopy& copy) { return copy.list == list; });
  return found == copies_.cend() ? std::nullopt : std::optional(*found);
}

void FirstSteps::PutBack() {
  const std::optional<ListCopy> copy = Copy();
  if (!copy) return;
  ChangeOptions options;
  options.news = SiteNews{{}, static_cast<int>(copy->sites.size())};
  const auto add = [copy](SiteEdit& edit) {
    TableEdit& table = copy->list == SiteList::Dsstv ? edit.dsstv : edit.wx;
    for (const SiteRec& site : copy->sites) table.Add(site);
    edit.dropsFilesOfNew = true;
  };
  deps_.changes.ChangeSites(add, options, this, [this](const QStringList& notWritten) {
    if (!notWritten.isEmpty()) Q_EMIT NotWritten(notWritten);
    Look();
  });
}
