#pragma once

#include "Collected.h"
#include "DesktopListView.h"
#include "ViewFixture.h"

/// A view with a list and one grid on its real screen.
struct ListViewTest : ViewTest {
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
    return Collected(Grid().ShownRows(), [](const auto& row) { return row.Record; });
  }
  std::pair<int, int> Focus() { return {Grid().FocusedRecord(), Grid().FocusedColumn()}; }
  std::string Title() { return FUi->TitleLabel().Value().AsText(); }
  std::vector<std::string> ListTexts(int ordinal) {
    return Collected(List().ShownRows(), [&](const auto& row) { return List().DisplayText(row.Record, ordinal); });
  }

  TDesktopListView* FUi = nullptr;
  TVantrelPtr<TBaseForm> FView;
};
