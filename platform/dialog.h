#pragma once

#include "platform/system.h"
#include "platform/wnd.h"

/// A dialog: a window that is answered and ends.
///
/// Each class of dialogs names itself by a constant `kClassName` and by className(), so that a
/// backend finds the form it shows, and a script the answers it gives.
class QDR_API CDialog : public CWnd {
 public:
  static constexpr const wchar_t* kClassName = L"CDialog";

  explicit CDialog(CWnd* parent = nullptr) : m_owner(parent) {}
  qdr::WindowKind kind() const override { return qdr::WindowKind::dialog; }
  virtual const wchar_t* className() const { return kClassName; }

  /// Runs the dialog; answers what it was ended with, IDCANCEL when it could not run.
  virtual int DoModal();

  /// Shows the dialog beside the program's other windows. OnInitDialog has run when it is true.
  bool Create(CWnd* parent = nullptr);

  /// Ends the dialog with an answer. The first call counts.
  void EndDialog(int answer);
  bool isEnded() const { return m_ended; }
  int answer() const { return m_answer; }

  /// Owner of the dialog on the screen.
  CWnd* owner() const { return m_owner; }

  /// Fills the fields; called before the dialog is shown.
  virtual bool OnInitDialog() { return true; }
  /// The buttons; each ends the dialog.
  virtual void OnOK() { EndDialog(IDOK); }
  virtual void OnCancel() { EndDialog(IDCANCEL); }

 protected:
  /// Forgets an earlier answer, for a dialog that runs again.
  void begin();

 private:
  CWnd* m_owner;
  int m_answer = IDCANCEL;
  bool m_ended = false;
};

/// The dialog that chooses a file. The backend fills in the path and reports each change of it.
class QDR_API CFileDialog : public CDialog {
 public:
  static constexpr const wchar_t* kClassName = L"CFileDialog";

  /// `filter` alternates captions and patterns: "Drawing(*.kov)|*.kov||".
  explicit CFileDialog(bool open, const wchar_t* extension = nullptr,
                       const wchar_t* fileName = nullptr, unsigned flags = 0,
                       const wchar_t* filter = nullptr, CWnd* parent = nullptr);
  const wchar_t* className() const override { return kClassName; }

  int DoModal() override;

  bool isOpenDialog() const { return m_open; }
  const CString& extension() const { return m_extension; }
  const CString& filter() const { return m_filter; }
  unsigned flags() const { return m_flags; }

  /// Full path of the file that is chosen.
  CString GetPathName() const { return m_path; }
  CString GetFileName() const;
  CString GetFileTitle() const;
  CString GetFileExt() const;
  CString GetFolderPath() const;

  /// For backends: takes over a choice and reports it.
  void choose(const wchar_t* path);

 protected:
  virtual void OnFolderChange() {}
  virtual void OnFileNameChange() {}

 private:
  bool m_open;
  unsigned m_flags;
  CString m_extension;
  CString m_path;
  CString m_filter;
};
