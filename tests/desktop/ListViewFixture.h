#pragma once

#include "DesktopListView.h"
#include "ViewFixture.h"

/// A view with a list and one grid on its real screen.
class ListViewTest : public ViewTest {
 protected:
  void TearDown() override {
    FView.reset();
    ViewTest::TearDown();
  }

  template <class TView>
  void Show() {
    FView.reset();
    auto ui = std::make_unique<TDesktopListView>(FWindow, "Liste");
    FUi = ui.get();
    FView = CreateVantrel<TView>(FFrame, std::move(ui));
    FView->Show();
    QTest::qWait(1);
    List().SetFocus();
  }
  TDesktopGrid& List() { return dynamic_cast<TDesktopGrid&>(FUi->List().Grid()); }
  TDesktopGrid& Grid() { return dynamic_cast<TDesktopGrid&>(FUi->Achievements().Grid()); }
  std::vector<int> Records() {
    std::vector<int> records;
    for (const auto& row : Grid().ShownRows()) records.push_back(row.Record);
    return records;
  }
  std::string Title() { return FUi->TitleLabel().Value().AsText(); }
  std::vector<std::string> ListTexts(int ordinal) {
    std::vector<std::string> texts;
    for (const auto& row : List().ShownRows()) texts.push_back(List().DisplayText(row.Record, ordinal));
    return texts;
  }

  TDesktopListView* FUi = nullptr;
  TVantrelPtr<TBaseForm> FView;
};
