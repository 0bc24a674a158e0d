#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/export.h"
#include "platform/points.h"

class CMenu;
class CWnd;

inline constexpr unsigned MF_BYCOMMAND = 0;
inline constexpr unsigned MF_ENABLED = 0;
inline constexpr unsigned MF_STRING = 0;
inline constexpr unsigned MF_GRAYED = 1;
inline constexpr unsigned MF_DISABLED = 2;
inline constexpr unsigned MF_POPUP = 16;
inline constexpr unsigned MF_BYPOSITION = 1024;
inline constexpr unsigned MF_SEPARATOR = 2048;
inline constexpr unsigned TPM_RETURNCMD = 256;

namespace qdr {

/// One row of a menu: a command, a separator (id 0) or a submenu.
struct MenuItem {
  unsigned id = 0;
  std::wstring text;
  bool enabled = true;
  std::shared_ptr<CMenu> submenu = nullptr;
};

/// One submenu of a menu resource.
struct PopupTemplate {
  std::wstring title;
  std::vector<MenuItem> items;
};

/// Makes a menu resource known to CMenu::LoadMenu; the earlier one of that number goes.
QDR_API void registerMenu(unsigned resource, std::vector<PopupTemplate> popups);

}  // namespace qdr

/// A menu as data: rows with submenus. Loading a resource copies it.
class QDR_API CMenu {
 public:
  /// False when no resource of that number is known.
  bool LoadMenu(unsigned resource);
  bool CreatePopupMenu();
  void AppendMenu(unsigned flags, unsigned id = 0, const wchar_t* text = nullptr);

  /// The submenu in a row, which stays this menu's; null for any other row.
  CMenu* GetSubMenu(int row) const;

  /// Enables or greys a row, found by its number in this menu and its submenus, or by position
  /// with MF_BYPOSITION. Answers the flags before, -1 when there is no such row.
  int EnableMenuItem(unsigned idOrRow, unsigned flags);

  /// Shows the menu at a point of the screen; answers the command chosen, 0 for none.
  unsigned TrackPopupMenu(unsigned flags, int x, int y, CWnd* owner) const;

  int GetMenuItemCount() const { return static_cast<int>(m_items.size()); }
  const std::vector<qdr::MenuItem>& items() const { return m_items; }
  /// The row of a command in this menu itself; null when there is none.
  const qdr::MenuItem* findItem(unsigned id) const;

 private:
  qdr::MenuItem* findAnywhere(unsigned id);

  std::vector<qdr::MenuItem> m_items;
};
