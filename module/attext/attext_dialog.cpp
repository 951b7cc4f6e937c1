#include "attext_dialog.h"
#include "frame/host_services.h"
#include "output_path.h"
#include "res/strings.h"
#include "sys/files.h"
#include "sys/folders.h"

namespace attext {
namespace {

struct FormatButton {
  int id;
  ExtractFormat format;
};

constexpr FormatButton kFormatButtons[] = {
    {IDC_ATTEXT_CDF, ExtractFormat::cdf},
    {IDC_ATTEXT_SDF, ExtractFormat::sdf},
    {IDC_ATTEXT_DXX, ExtractFormat::dxx},
};

struct ControlText {
  int id;
  unsigned text;
};

constexpr ControlText kControlTexts[] = {
    {IDC_ATTEXT_FORMAT, IDS_ATTEXT_FILE_FORMAT},
    {IDC_ATTEXT_CDF, IDS_ATTEXT_CDF},
    {IDC_ATTEXT_SDF, IDS_ATTEXT_SDF},
    {IDC_ATTEXT_DXX, IDS_ATTEXT_DXX},
    {IDC_ATTEXT_SELECT, IDS_ATTEXT_SELECT_OBJECTS},
    {IDC_ATTEXT_TEMPLATE_BUTTON, IDS_ATTEXT_TEMPLATE_FILE},
    {IDC_ATTEXT_OUTPUT_BUTTON, IDS_ATTEXT_OUTPUT_FILE},
    {IDC_ATTEXT_FOUND_LABEL, IDS_ATTEXT_NUMBER_FOUND},
};

bool fileExists(const OdString& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(sys::toPath(path.str()), error);
}

} // namespace

CAttExtDlg::CAttExtDlg(OdString drawingPath) : Dialog(IDD_ATTEXT), m_drawingPath(std::move(drawingPath)) {}

void CAttExtDlg::onInit() {
  setTexts();
  for (const FormatButton& button : kFormatButtons) setChecked(button.id, button.format == m_format);
  m_outputPath =
      suggestedOutputPath(m_drawingPath, OdString(sys::fromPath(sys::documentsFolder())), m_format);
  setText(IDC_ATTEXT_TEMPLATE, m_templatePath);
  setText(IDC_ATTEXT_OUTPUT, m_outputPath);
  setText(IDC_ATTEXT_FOUND, OdString().format(L"%d", m_foundCount));
  if (m_format == ExtractFormat::dxx) enable(IDC_ATTEXT_TEMPLATE_BUTTON, false);
}

void CAttExtDlg::setTexts() {
  setTitle(frame::dialogText(IDS_ATTEXT_TITLE));
  for (const ControlText& control : kControlTexts) setText(control.id, frame::dialogText(control.text));
}

void CAttExtDlg::onPress(int id) {
  for (const FormatButton& button : kFormatButtons) {
    if (button.id == id) return chooseFormat(button.format);
  }
  switch (id) {
  case IDC_ATTEXT_SELECT: return end(kSelectObjects);
  case IDC_ATTEXT_TEMPLATE_BUTTON: return askTemplate();
  case IDC_ATTEXT_OUTPUT_BUTTON: return askOutput();
  default: return;
  }
}

void CAttExtDlg::onChange(int id) {
  if (id == IDC_ATTEXT_TEMPLATE) m_templatePath = text(id);
  if (id == IDC_ATTEXT_OUTPUT) m_outputPath = text(id);
}

void CAttExtDlg::chooseFormat(ExtractFormat format) {
  m_format = format;
  enable(IDC_ATTEXT_TEMPLATE_BUTTON, format != ExtractFormat::dxx);
  enable(IDC_ATTEXT_TEMPLATE, format != ExtractFormat::dxx);
  adjustExtension();
}

void CAttExtDlg::adjustExtension() {
  m_outputPath = withFormatExtension(m_outputPath, m_format);
  setText(IDC_ATTEXT_OUTPUT, m_outputPath);
}

void CAttExtDlg::askTemplate() {
  ui::FileRequest request;
  request.filter = frame::dialogText(IDS_FILTER_TEXT_FILES);
  request.defaultName = L"*.txt";
  request.fileMustExist = true;
  request.pathMustExist = true;
  const auto path = askFile(request);
  if (!path) return;
  m_templatePath = *path;
  setText(IDC_ATTEXT_TEMPLATE, m_templatePath);
}

void CAttExtDlg::askOutput() {
  const bool dxx = m_format == ExtractFormat::dxx;
  ui::FileRequest request;
  request.save = true;
  request.filter = frame::dialogText(dxx ? IDS_FILTER_DXX_FILES : IDS_FILTER_TEXT_FILES);
  request.initialPath = m_outputPath;
  request.defaultName = dxx ? L"*.dxx" : L"*.txt";
  request.overwritePrompt = true;
  const auto path = askFile(request);
  if (!path) return;
  m_outputPath = *path;
  adjustExtension();
}

void CAttExtDlg::onHelp() { frame::showHelp(nullptr, window()); }

void CAttExtDlg::onOk() {
  if (mayClose()) end(1);
}

bool CAttExtDlg::mayClose() {
  if (m_foundCount == 0) return refuse(IDS_ATTEXT_NOTHING_SELECTED), false;
  if (m_format == ExtractFormat::dxx) return true;
  if (!fileExists(m_templatePath)) {
    frame::tellError(frame::dialogText(IDS_TEMPLATE_NOT_FOUND), window());
    return false;
  }
  // The text speaks of the template, but users of this dialog know it as the answer to a missing output path.
  if (m_outputPath.isEmpty()) return refuse(IDS_ATTEXT_TEMPLATE_REQUIRED), false;
  if (m_outputPath == m_templatePath) return refuse(IDS_ATTEXT_OUTPUT_IS_TEMPLATE), false;
  return true;
}

void CAttExtDlg::refuse(unsigned message) {
  messageBox(frame::dialogText(message), title(), ui::MessageIcon::error);
}

} // namespace attext
