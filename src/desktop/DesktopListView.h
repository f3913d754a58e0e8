#pragma once

#include "DesktopGridPane.h"
#include "DesktopViewScreen.h"
#include "fListViewUi.h"

/// The screen of the subjects view and of the classes view.
class TDesktopListView final : public TListViewUi {
 public:
  /// `heading` is a built-in text, shown above the list.
  TDesktopListView(TDesktopMainWindow& window, const char* heading);

  void SetVisible(bool visible) override { FScreen.SetVisible(visible); }
  TVantrelFormItem& TitleLabel() override { return FScreen.Title(); }
  TGridPaneUi& List() override { return FList; }
  TGridPaneUi& Achievements() override { return FAchievements; }

 private:
  TDesktopViewScreen FScreen;
  TDesktopGridPane FList;
  TDesktopGridPane FAchievements;
};
