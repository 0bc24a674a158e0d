#include "platform/menu.h"

#include <algorithm>
#include <map>

#include "platform/platform_context.h"
#include "platform/system.h"

namespace {

std::map<unsigned, std::vector<qdr::PopupTemplate>>& resources() {
  static std::map<unsigned, std::vector<qdr::PopupTemplate>> known;
  return known;
}

}  // namespace

namespace qdr {

void registerMenu(unsigned resource, std::vector<PopupTemplate> popups) {
  resources()[resource] = std::move(popups);
}

}  // namespace qdr

bool CMenu::LoadMenu(unsigned resource) {
  const auto found = resources().find(resource);
  if (found == resources().end()) return false;
  m_items.clear();
  for (const qdr::PopupTemplate& popup : found->second) {
    auto submenu = std::make_shared<CMenu>();
    submenu->m_items = popup.items;
    m_items.push_back({0, popup.title, true, std::move(submenu)});
  }
  return true;
}

bool CMenu::CreatePopupMenu() {
  m_items.clear();
  return true;
}

void CMenu::AppendMenu(unsigned flags, unsigned id, const wchar_t* text) {
  const bool separator = (flags & MF_SEPARATOR) != 0;
  const bool enabled = (flags & (MF_GRAYED | MF_DISABLED)) == 0;
  m_items.push_back({separator ? 0 : id, text ? text : L"", enabled, nullptr});
}

CMenu* CMenu::GetSubMenu(int row) const {
  const bool holds = row >= 0 && row < GetMenuItemCount();
  return holds ? m_items[static_cast<std::size_t>(row)].submenu.get() : nullptr;
}

int CMenu::EnableMenuItem(unsigned idOrRow, unsigned flags) {
  qdr::MenuItem* item = nullptr;
  if ((flags & MF_BYPOSITION) == 0)
    item = findAnywhere(idOrRow);
  else if (idOrRow < m_items.size())
    item = &m_items[idOrRow];
  if (!item) return -1;
  const unsigned before = item->enabled ? MF_ENABLED : MF_GRAYED;
  item->enabled = (flags & (MF_GRAYED | MF_DISABLED)) == 0;
  return static_cast<int>(before);
}

unsigned CMenu::TrackPopupMenu(unsigned, int x, int y, CWnd* owner) const {
  return static_cast<unsigned>(qdr::platform().ui->trackPopup(*this, CPoint(x, y), owner));
}

const qdr::MenuItem* CMenu::findItem(unsigned id) const {
  if (id == 0) return nullptr;
  const auto found = std::find_if(m_items.begin(), m_items.end(),
                                  [id](const qdr::MenuItem& item) { return item.id == id; });
  return found == m_items.end() ? nullptr : &*found;
}

qdr::MenuItem* CMenu::findAnywhere(unsigned id) {
  if (id == 0) return nullptr;
  for (qdr::MenuItem& item : m_items) {
    if (item.id == id) return &item;
    if (!item.submenu) continue;
    if (qdr::MenuItem* const inner = item.submenu->findAnywhere(id)) return inner;
  }
  return nullptr;
}
