#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "DesktopDialogs.h"
#include "DesktopGrid.h"
#include "DesktopMainWindow.h"
#include "DesktopMsgBox.h"
#include "DesktopStudentsView.h"
#include "DesktopWelcomeView.h"
#include "ElidedLabel.h"
#include "MsgBoxes.h"
#include "Testing.h"

namespace {

using enum TVantrelMsgBoxResult;

/// Does something with the modal dialog as soon as it is there.
template <class TWidget>
void InDialog(std::function<void(TWidget&)> action) {
  QTimer::singleShot(0, [action = std::move(action)] {
    auto* dialog = qobject_cast<TWidget*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    action(*dialog);
  });
}

QPushButton* ButtonOf(const QWidget& dialog, const char* text) {
  for (auto* button : dialog.findChildren<QPushButton*>())
    if (button->text().remove('&') == text) return button;
  return nullptr;
}

/// Fails at each painting and at each key.
class TFailingWidget : public QWidget {
  void paintEvent(QPaintEvent*) override { throw EVantrelException("painting"); }
  void keyPressEvent(QKeyEvent*) override { throw EVantrelException("key"); }
};

TEST(DesktopApplication, TellsWhatComesThroughInOneBoxAndLivesOn) {
  const FakeBoxes boxes;
  TFailingWidget widget;
  const auto happens = [&](auto action) {
    const auto before = boxes.Texts.size();
    action();
    EXPECT_EQ(boxes.Texts.size(), before) << "told before the event was over";
    QTest::qWait(50);
    return boxes.Texts.size() - before;
  };
  EXPECT_EQ(happens([&] { widget.show(), widget.repaint(); }), 1U);
  EXPECT_NE(boxes.Texts.back().find("aufgetreten: painting\n"), std::string::npos);
  EXPECT_EQ(happens([&] { widget.repaint(); }), 0U);
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(happens([&] { QTest::keyClick(&widget, Qt::Key_A), QTest::keyClick(&widget, Qt::Key_A); }), 1U);
}

TEST(DesktopMsgBox, AnswersOnlyByItsButtons) {
  const TDesktopMsgBoxes boxes;
  InDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), "Speichern? <b>&amp;");
    EXPECT_EQ(box.defaultButton(), ButtonOf(box, "Nein"));
    QTest::keyClick(&box, Qt::Key_Escape);
    box.close();
    ASSERT_TRUE(box.isVisible());
    QTest::keyClick(&box, Qt::Key_J, Qt::AltModifier);
    if (box.isVisible()) ButtonOf(box, "Ja")->click();
  });
  EXPECT_EQ(MsgBoxAsk("Hinweis", "Speichern? <b>&amp;", false, TVantrelMsgBoxParent::mbpActiveWindow, 2, false),
            mbrYes);
  for (const auto& [defaultButton, answer] : {std::pair(2, mbrNo), {1, mbrYes}}) {
    InDialog<QMessageBox>([](QMessageBox& box) {
      QTest::keyClick(&box, Qt::Key_Escape);
      if (box.isVisible()) ButtonOf(box, "Ja")->click();
    });
    EXPECT_EQ(MsgBoxAsk("Hinweis", "Ersetzen?", false, TVantrelMsgBoxParent::mbpActiveWindow, defaultButton), answer);
  }
  InDialog<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(MsgBoxAsk("Hinweis", "Speichern?", true), mbrCancel);
}

TEST(DesktopLabels, EndAtAWholeWordAndKeepWhatCounts) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {", ", "Filter: Klasse: 9a, 3 von 12", "Filter: Klasse: 9a, 3 von 12", "Filter: Klasse: 9a, 3 von 12"},
      {", ", "Filter: Klasse: 9a, 3 von 12", "Filter: Klasse…, 3 von 12", "Filter:…, 3 von 12"},
      {"", "Durchschnitt 2,88   Note: 8 von 8", "Durchschnitt 2,88   Not…", "Durchschnitt 2,88…"}};
  for (const auto& [lastPart, text, room, shown] : cases) {
    TElidedLabel label(lastPart);
    label.setText(text);
    label.resize(label.fontMetrics().horizontalAdvance(room), 20);
    EXPECT_EQ(label.ShownText(), shown);
    EXPECT_GE(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(text));
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
  }
}

TEST(DesktopMsgBox, StandsOverItsParentAndHelps) {
  using enum TVantrelMsgBoxParent;
  const TDesktopMsgBoxes boxes;
  TDesktopMainWindow window, other;
  window.show();
  QDialog active(&window);
  active.show();
  int context = 0;
  TVantrelMsgBox::OnHelp = [&](int helpContext) { context += helpContext; };
  const std::tuple<TVantrelMsgBoxParent, TDesktopMainWindow*, QWidget*> cases[] = {{mbpApplication, &other, &window},
                                                                                   {mbpMainWindow, &other, &window},
                                                                                   {mbpActiveWindow, &other, &active},
                                                                                   {mbpOwner, &other, &other},
                                                                                   {mbpOwner, nullptr, &active}};
  for (const auto& [parent, owner, expected] : cases) {
    active.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&active));
    TVantrelMsgBox box;
    box.SetParent(parent);
    box.SetOwner(owner);
    box.SetHelpButton(true);
    box.SetHelpContext(7);
    box.SetDefaultButton(2);
    InDialog<QMessageBox>([over = expected](QMessageBox& shown) {
      EXPECT_EQ(shown.parentWidget(), over);
      EXPECT_EQ(shown.defaultButton(), ButtonOf(shown, "Hilfe"));
      QTest::keyClick(&shown, Qt::Key_Return);
      ASSERT_TRUE(shown.isVisible());
      ButtonOf(shown, "OK")->click();
    });
    EXPECT_EQ(box.Execute(), mbrOK);
  }
  EXPECT_EQ(context, 35);
  TVantrelMsgBox::OnHelp = nullptr;
}

TEST(DesktopDialogs, NeitherWaitCursorNorSplashWindowStandsOverABox) {
  const TDesktopMsgBoxes boxes;
  TDesktopDialogs dialogs;
  const auto splashes = [] {
    const auto windows = QApplication::topLevelWidgets();
    return std::count_if(windows.begin(), windows.end(), [](const QWidget* window) {
      return window->isVisible() && window->windowType() == Qt::SplashScreen;
    });
  };
  dialogs.ShowSplash("Version 1.2.3");
  dialogs.SetWaitCursor(true);
  ASSERT_EQ(splashes(), 1);
  InDialog<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(splashes(), 0);
    box.accept();
  });
  MsgBoxError("Text");
  EXPECT_EQ(splashes(), 0);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  dialogs.SetWaitCursor(false);
}

TEST(DesktopDialogs, AboutWindowIsOfItsToldHeightInTheMiddle) {
  TDesktopDialogs dialogs;
  InDialog<QDialog>([](QDialog& dialog) {
    EXPECT_EQ(dialog.height(), 220);
    const QPoint away = dialog.geometry().center() - dialog.screen()->geometry().center();
    constexpr int frame = 8;
    EXPECT_LE(away.manhattanLength(), frame);
    ButtonOf(dialog, "Schließen")->click();
  });
  dialogs.ShowAbout({"MyTESSARON", "Version 10.2.0.0 ", "Copyright © 2026"});
}

TEST(DesktopDialogs, PasswordNeedsATextAndCancelForgetsIt) {
  TDesktopDialogs dialogs;
  const auto ask = [&](const char* button) {
    InDialog<QDialog>([button](QDialog& dialog) {
      auto* editor = dialog.findChild<QLineEdit*>();
      EXPECT_FALSE(ButtonOf(dialog, "OK")->isEnabled());
      QTest::keyClicks(editor, "geheim");
      EXPECT_TRUE(ButtonOf(dialog, "OK")->isEnabled());
      editor->clear();
      EXPECT_FALSE(ButtonOf(dialog, "OK")->isEnabled());
      QTest::keyClicks(editor, "geheim");
      ButtonOf(dialog, button)->click();
    });
    return dialogs.AskPassword();
  };
  EXPECT_EQ(ask("OK"), "geheim");
  EXPECT_EQ(ask("Abbrechen"), "");
}

TEST(DesktopDialogs, FileDialogStaysWhileTheNameIsRefused) {
  const TDesktopMsgBoxes boxes;
  TDesktopDialogs dialogs;
  TempFolder folder;
  TFileDialog told{"Datei speichern unter", "Eine (*.eins, alt)|*.eins|Alle Dateien|*.*", 1, folder / "", "", {}, {}};
  std::filesystem::create_directory(folder / "Schule.2026");
  told.Accepts = [](const std::string& path) {
    if (path.ends_with(".eins")) return true;
    MsgBoxError("Nein.");
    return false;
  };
  InDialog<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters(), (QStringList{"Eine (*.eins, alt) (*.eins)", "Alle Dateien (*)"}));
    auto* kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
    EXPECT_EQ(kinds->currentText(), "Eine (*.eins, alt)");
    kinds->setCurrentIndex(1);
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    name->setText("falsch.txt");
    InDialog<QMessageBox>([](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Nein.");
      box.accept();
    });
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_TRUE(dialog.isVisible());
    name->setText("Schule.2026");
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(dialog.directory().dirName(), "Schule.2026");
    name->setText("gut.eins");
    QTest::keyClick(name, Qt::Key_Return);
  });
  ASSERT_TRUE(dialogs.SaveFile(told));
  EXPECT_EQ(told.FileName, folder / "Schule.2026/gut.eins");
  EXPECT_EQ(told.FilterIndex, 2);
}

TEST(DesktopMainWindow, TakesItsPlaceOnAScreenThatIsThere) {
  TDesktopMainWindow window;
  window.setMinimumSize(100, 100);
  const QRect room = window.screen()->availableGeometry();
  for (const QRect& stored : {QRect(-5000, -5000, 300, 200), QRect(5000, 5000, 300, 200), QRect(0, 0, 9000, 9000)}) {
    window.SetPlacement({stored.left(), stored.top(), stored.right() + 1, stored.bottom() + 1});
    EXPECT_TRUE(room.contains(window.geometry()));
    EXPECT_GT(window.geometry().top(), room.top());
  }
  for (const auto state : {TWindowState::Minimized, TWindowState::Maximized, TWindowState::Normal}) {
    TDesktopMainWindow other;
    other.setMinimumSize(100, 100);
    other.SetPlacement({10, 20, 310, 200, state});
    other.show();
    QTest::qWait(1);
    EXPECT_EQ(other.Placement().State, state);
    EXPECT_EQ(other.Placement().Right, 310);
    EXPECT_EQ(other.Placement().Top, 20);
  }
}

TEST(DesktopMainWindow, OneFileCanBeDropped) {
  TDesktopMainWindow window;
  window.show();
  std::string dropped;
  window.OnFileDropped = [&](const std::string& path) { dropped += path; };
  for (const auto& [urls, path] : {std::pair(QList<QUrl>{QUrl("file:///a%20b.kvrx")}, "/a b.kvrx"),
                                   {{QUrl("http://schule/a.kvrx")}, ""},
                                   {{QUrl("file:///a.kvrx"), QUrl("file:///b.kvrx")}, ""},
                                   {{}, ""}}) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), *path != '\0');
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    QTest::qWait(1);
    EXPECT_EQ(std::exchange(dropped, {}), path);
  }
}

TEST(DesktopViews, AnEmptyStartOpensARecentFileByKey) {
  TDesktopMainWindow window;
  auto view = std::make_unique<TDesktopWelcomeView>(window);
  std::vector<int> chosen;
  view->OnRecentClick = [&](int index) {
    chosen.push_back(index);
    view.reset();
  };
  view->SetStart(true, {{"a.kvrx", "/eins/a.kvrx"}, {"a.kvrx", "/zwei/a.kvrx"}});
  window.show();
  view->SetVisible(true);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto* list = qobject_cast<QListWidget*>(QApplication::focusWidget());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->item(1)->text(), "a.kvrx in /zwei");
  QTest::keyClick(list, Qt::Key_Down);
  for (int i = 0; i < 2; ++i) QTest::keyClick(list, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(chosen, std::vector{1});
}

TEST(DesktopViews, NothingComesFromAStudentsViewThatHasEnded) {
  TDesktopMainWindow window;
  window.show();
  auto table = std::make_unique<TVantrelMemTable>();
  table->AddField("Name", TVantrelFieldType::ftText, 20);
  table->Open();
  table->Append();
  table->Post();
  auto view = std::make_unique<TDesktopStudentsView>(window);
  int events = 0;
  view->OnPageChanged = [&] { ++events; };
  view->Students().Grid().AddColumn({"name", "Name"});
  view->Students().Grid().BindTable(table.get());
  view->Students().Grid().OnFocusChanged = [&](int, int) { ++events; };
  view->SetPageVisible(TStudentsPage::CertificateCommentsSheet, false);
  view->SetActivePage(TStudentsPage::CertificateDataSheet);
  EXPECT_EQ(view->ActivePage(), TStudentsPage::CertificateDataSheet);
  view->SetVisible(true);
  EXPECT_TRUE(window.isAncestorOf(dynamic_cast<QWidget*>(&view->Achievements().Grid())));
  events = 0;

  auto* pages = window.findChild<QTabWidget*>();
  view->OnPageChanged = [&] {
    ++events;
    view.reset();
    table.reset();
  };
  pages->setCurrentIndex(0);
  pages->setCurrentIndex(1);
  EXPECT_EQ(events, 1);
  EXPECT_FALSE(pages->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window.findChild<QTabWidget*>(), nullptr);
}

}  // namespace
