// The password dialog and the about window.
#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "DesktopDialogs.h"
#include "DesktopLook.h"
#include "DesktopModalForm.h"
#include "DesktopTexts.h"
#include "QtText.h"

namespace {

/// A dialog of fixed size: a column of parts, then a row of buttons on the right.
class TSmallDialog : public TDesktopModalForm {
 public:
  explicit TSmallDialog(const QString& title) : FParts(new QVBoxLayout), FButtons(new QHBoxLayout) {
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(7);
    layout->addLayout(FParts);
    layout->addStretch();
    layout->addLayout(FButtons);
    FButtons->addStretch();
  }
  QVBoxLayout& Parts() { return *FParts; }
  QPushButton* AddButton(const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    FButtons->addWidget(button);
    return button;
  }
  /// As large as its parts need, and `height` pixels high where that is enough for them.
  void FixSize(int height = 0) { setFixedSize(sizeHint().width(), std::max(sizeHint().height(), height)); }

 private:
  QVBoxLayout* FParts;
  QHBoxLayout* FButtons;
};

}  // namespace

std::string TDesktopDialogs::AskPassword() {
  TSmallDialog dialog(UserText(DesktopTexts::PasswordTitle));
  auto* text = new QLabel(UserText(DesktopTexts::PasswordText));
  auto* editor = new QLineEdit;
  editor->setEchoMode(QLineEdit::Password);
  editor->setStyleSheet("lineedit-password-character: 42");
  editor->setAccessibleName(UserText(DesktopTexts::PasswordEdit));
  text->setBuddy(editor);
  dialog.Parts().addWidget(text);
  dialog.Parts().addWidget(editor);
  auto* ok = dialog.AddButton(UserText(DesktopTexts::BoxOK));
  ok->setDefault(true);
  ok->setEnabled(false);
  auto* cancel = dialog.AddButton(UserText(DesktopTexts::BoxCancel));
  QObject::connect(editor, &QLineEdit::textChanged, ok,
                   [ok](const QString& typed) { ok->setEnabled(!typed.isEmpty()); });
  QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  dialog.FixSize();
  return dialog.ShowModal() ? ToUtf8(editor->text()) : std::string();
}

void TDesktopDialogs::ShowAbout(const TAboutInfo& about) {
  constexpr int height = 220, pictureSize = 128;
  TSmallDialog dialog(UserText(DesktopTexts::AboutTitle));
  auto* parts = new QHBoxLayout;
  parts->setSpacing(20);
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(QSize(pictureSize, pictureSize), dialog.devicePixelRatio()));
  parts->addWidget(picture, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  parts->addLayout(column);
  auto* product = new QLabel(FromUtf8(about.Product));
  QFont font = product->font();
  font.setPointSizeF(font.pointSizeF() * 1.8);
  font.setBold(true);
  product->setFont(font);
  column->addWidget(product);
  column->addWidget(new QLabel(FromUtf8(about.Version)));
  column->addSpacing(12);
  column->addWidget(new QLabel(FromUtf8(about.Copyright)));
  column->addStretch();
  column->addStrut(230);
  dialog.Parts().addLayout(parts);
  auto* close = dialog.AddButton(UserText(DesktopTexts::Close));
  close->setDefault(true);
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
  dialog.FixSize(height);
  dialog.move(dialog.screen()->geometry().center() - dialog.rect().center());
  dialog.ShowModal();
}
