#pragma once

#include <functional>

#include "dialogs/Dialog.h"
#include "model/PathTable.h"

namespace form {

// The editor of the path: its corners in a list, the chosen one in two boxes below.
class PathDialog final : public Dialog {
 public:
  // Takes a path into use: empty, or the reason why it cannot be, which the dialog shows.
  using Accept = std::function<std::wstring(const Path&)>;

  // Begins with the path, and with a problem to tell, unless that is empty.
  PathDialog(const Path& path, const std::wstring& problem, Accept accept);
  // True when a path was taken into use.
  bool ask(HWND owner) { return run(owner) == IDOK; }

 private:
  HWND onInit() override;
  void onCommand(int id, int notification) override;
  INT_PTR onNotify(const NMHDR& note) override;
  INT_PTR onMessage(UINT message, WPARAM wide, LPARAM longer) override;

  void accept();
  void add();
  void remove();
  void move(bool up);
  // Points of a text in place of the rows; what is wrong with it is shown instead.
  bool takeText(const std::wstring& text);
  void paste();
  void load();
  void save();

  void showRows();
  void showRow(std::size_t row);
  void select(std::size_t row);
  void showSelected();
  void showState();
  void sayOnce(const std::wstring& problem);
  std::size_t selected() const;
  static LRESULT CALLBACK boxProcedure(HWND box, UINT message, WPARAM wide, LPARAM longer,
                                       UINT_PTR id, DWORD_PTR self);

  PathTable table_;
  Accept accept_;
  bool filling_ = false;
  std::wstring said_;  // shown until the rows change
};

}  // namespace form
