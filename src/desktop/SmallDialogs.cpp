// The password dialog and the about window.
#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include "DesktopDialogs.h"
#include "DesktopLook.h"
#include "DesktopTexts.h"
#include "QtText.h"
#include "SmallDialog.h"

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
