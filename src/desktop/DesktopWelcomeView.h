#pragma once

#include <map>

#include "DesktopFormItems.h"
#include "HostedPanel.h"
#include "fWelcomeViewUi.h"

class QVBoxLayout;
class TRecentList;
class TWelcomePanel;

/// The welcome view's screen: three cards in a column in the middle.
class TDesktopWelcomeView final : public TWelcomeViewUi {
 public:
  explicit TDesktopWelcomeView(TDesktopMainWindow& window);
  ~TDesktopWelcomeView() override;

  void SetVisible(bool visible) override { FPanel.SetVisible(visible); }
  TVantrelFormItem& Text(TWelcomeText text) override { return *FItems.at(text); }
  void MoveCenterPanel(int left, int top) override;
  void SetStart(bool visible, const std::vector<TRecentItem>& recent) override;

 private:
  void AddLabels(QVBoxLayout& layout, std::initializer_list<TWelcomeText> texts, double size);
  void AddSummary(QVBoxLayout& layout);
  void AddMemo(QVBoxLayout& layout);
  void AddStart(QVBoxLayout& layout);

  TWelcomePanel* FScreen;
  THostedPanel FPanel;
  QWidget* FDescription;
  QWidget* FStart;
  QLabel* FRecentHeading;
  TRecentList* FRecent;
  std::map<TWelcomeText, std::unique_ptr<TVantrelFormItem>> FItems;
};
