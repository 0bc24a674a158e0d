#pragma once

#include "platform/dialog.h"
#include "platform/wide_string.h"

/// Asks for one value: a caption, and a text that the user changes.
class QDR_API CDlgGetValue : public CDialog {
 public:
  static constexpr const wchar_t* kClassName = L"CDlgGetValue";

  CDlgGetValue(CWnd* parent, const CString& caption, const CString& value)
      : CDialog(parent), m_caption(caption), m_value(value) {}
  const wchar_t* className() const override { return kClassName; }

  const CString& caption() const { return m_caption; }
  const CString& value() const { return m_value; }
  void setValue(const CString& value) { m_value = value; }

 private:
  CString m_caption;
  CString m_value;
};
