#pragma once
#include "extract_template.h"
#include "ui/dialog.h"

namespace attext {

/// Asks what to extract, in which format and where to. The dialog can be shown again and again in one run;
/// its data survives a showing, but for the output path, which each showing derives anew from the drawing.
class CAttExtDlg : public ui::Dialog {
public:
  /// Results of doModal besides those of every dialog (1 OK, 2 and 3 cancelled).
  static constexpr int kSelectObjects = 10;

  /// The path of the drawing that the output path is derived from.
  explicit CAttExtDlg(OdString drawingPath);

  ExtractFormat format() const { return m_format; }
  const OdString& templatePath() const { return m_templatePath; }
  const OdString& outputPath() const { return m_outputPath; }
  /// The number of objects that are selected.
  void setFoundCount(int count) { m_foundCount = count; }

  void onInit() override;
  void onPress(int id) override;
  void onChange(int id) override;
  void onHelp() override;
  void onOk() override;

private:
  void setTexts();
  void chooseFormat(ExtractFormat format);
  void adjustExtension();
  void askTemplate();
  void askOutput();
  bool mayClose();
  void refuse(unsigned message);

  OdString m_drawingPath;
  ExtractFormat m_format = ExtractFormat::cdf;
  OdString m_templatePath;
  OdString m_outputPath;
  int m_foundCount = 0;
};

} // namespace attext
