#include "platform/dialog.h"

#include "platform/file_path.h"
#include "platform/platform_context.h"

void CDialog::begin() {
  m_answer = IDCANCEL;
  m_ended = false;
}

int CDialog::DoModal() {
  begin();
  return qdr::platform().ui->runModal(*this);
}

bool CDialog::Create(CWnd* parent) {
  begin();
  return CWnd::Create(parent) && OnInitDialog();
}

void CDialog::EndDialog(int answer) {
  if (m_ended) return;
  m_answer = answer;
  m_ended = true;
  if (peer()) peer()->close();
}

CFileDialog::CFileDialog(bool open, const wchar_t* extension, const wchar_t* fileName,
                         unsigned flags, const wchar_t* filter, CWnd* parent)
    : CDialog(parent),
      m_open(open),
      m_flags(flags),
      m_extension(extension),
      m_path(fileName),
      m_filter(filter) {}

int CFileDialog::DoModal() {
  begin();
  return qdr::platform().ui->runFileDialog(*this);
}

CString CFileDialog::GetFileName() const {
  return qdr::fileNameOf(m_path);
}

CString CFileDialog::GetFileTitle() const {
  return qdr::titleOf(m_path);
}

CString CFileDialog::GetFileExt() const {
  return qdr::extensionOf(m_path);
}

CString CFileDialog::GetFolderPath() const {
  return qdr::folderOf(m_path);
}

void CFileDialog::choose(const wchar_t* path) {
  const bool isElsewhere = !(qdr::folderOf(path) == GetFolderPath());
  m_path = CString(path);
  if (isElsewhere) OnFolderChange();
  OnFileNameChange();
}
