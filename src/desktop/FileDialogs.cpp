// How a project file is chosen.
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <algorithm>

#include "DesktopDialogs.h"
#include "DesktopLook.h"
#include "QtText.h"

namespace {

/// "Text|pattern|Text|pattern" as Qt wants it.
QStringList NameFilters(const std::string& filter) {
  const auto parts = FromUtf8(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters << QString("%1 (%2)").arg(parts[i], parts[i + 1] == "*.*" ? QString("*") : parts[i + 1]);
  return filters;
}

/// Stays open while the chosen name is refused. Folders are entered, whatever they are called.
class TJudgingDialog : public QFileDialog {
 public:
  TJudgingDialog(QWidget* parent, TFileDialog& told) : QFileDialog(parent), FTold(told) {}

  /// Takes over which filter is chosen.
  void TakeFilter() {
    // The dialog itself answers with the shortened text.
    const auto filters = NameFilters(FTold.Filter);
    const auto chosen = std::find_if(filters.begin(), filters.end(),
                                     [filter = selectedNameFilter()](const auto& f) { return f.startsWith(filter); });
    if (chosen != filters.end()) FTold.FilterIndex = static_cast<int>(chosen - filters.begin()) + 1;
  }

 protected:
  void accept() override {
    // The list of completions has seized the keyboard: keys that come before it goes would be lost.
    if (auto* completions = QApplication::activePopupWidget()) completions->close();
    const auto chosen = selectedFiles();
    const bool isFile = !chosen.isEmpty() && !QFileInfo(chosen.front()).isDir();
    if (isFile) TakeFilter();
    if (!isFile || !FTold.Accepts || FTold.Accepts(ToUtf8(chosen.front()))) QFileDialog::accept();
  }

 private:
  TFileDialog& FTold;
};

constexpr int SizeColumn = 1, DateColumn = 3;

/// Sizes and dates as the program writes them: the dialog itself follows the system's language.
class TFileFacts : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QFileInfo file(index.siblingAtColumn(0).data(QFileSystemModel::FilePathRole).toString());
    if (index.column() == DateColumn)
      option->text = file.lastModified().toString("dd.MM.yyyy HH:mm");
    else if (!file.isDir())
      option->text = QLocale().formattedDataSize(file.size());
  }
};

void Prepare(QFileDialog& shown, const TFileDialog& told) {
  shown.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                   QFileDialog::HideNameFilterDetails);
  shown.setWindowTitle(FromUtf8(told.Title));
  const auto filters = NameFilters(told.Filter);
  shown.setNameFilters(filters);
  shown.selectNameFilter(filters.value(told.FilterIndex - 1));
  shown.setDefaultSuffix(FromUtf8(told.DefaultExtension));
  const auto folder = FromUtf8(told.InitialDir);
  shown.setDirectory(!folder.isEmpty() && QDir(folder).exists() ? folder : QDir::homePath());
  if (!told.FileName.empty()) shown.selectFile(FromUtf8(told.FileName));
  shown.setViewMode(QFileDialog::Detail);
  if (auto* details = shown.findChild<QTreeView*>("treeView")) {
    for (const int column : {SizeColumn, DateColumn})
      details->setItemDelegateForColumn(column, new TFileFacts(details));
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
  constexpr QSize usual(820, 520);
  shown.resize(usual.boundedTo(shown.screen()->availableSize()));
}

bool Choose(TFileDialog& told, QFileDialog::AcceptMode mode) {
  TJudgingDialog shown(ActiveWindow(), told);
  shown.setAcceptMode(mode);
  shown.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  Prepare(shown, told);
  const TDialogScope scope;
  if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty()) return false;
  told.FileName = ToUtf8(shown.selectedFiles().front());
  shown.TakeFilter();
  return true;
}

}  // namespace

bool TDesktopDialogs::OpenFile(TFileDialog& dialog) {
  return Choose(dialog, QFileDialog::AcceptOpen);
}

bool TDesktopDialogs::SaveFile(TFileDialog& dialog) {
  return Choose(dialog, QFileDialog::AcceptSave);
}
