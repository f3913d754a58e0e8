#pragma once

#include <functional>
#include <vector>

#include "VantrelDialogs.h"
#include "VantrelMainWindow.h"
#include "fBaseViewUi.h"

/// The texts of the welcome view, in the order of the screen: the first two in InfoGroup, the last in
/// DescriptionGroup, the others in FileGroup.
enum class TWelcomeText {
  VersionText,
  FileVersionText,
  FilenameText,
  StudentsText,
  CreatedOnText,
  ChangedOnText,
  FilepathText,
  WriteProtectedText,
  SignatureText,
  PeriodText,
  TenantText,
  DescriptionMemo,
};

/// The screen of the welcome view: a scroll box, and in it a panel of 600 by 520 pixels with the three groups.
/// FilenameText is the largest; it has several lines.
class TWelcomeViewUi : public TFormUi {
 public:
  static constexpr int CenterPanelWidth = 600;
  static constexpr int CenterPanelHeight = 520;

  /// The size of the view in pixels, at its first show and at every change.
  std::function<void(int width, int height)> OnResize;
  std::function<void(int index)> OnRecentClick;

  virtual TVantrelFormItem& Text(TWelcomeText text) = 0;
  virtual void MoveCenterPanel(int left, int top) = 0;
  /// Below the groups, while no file is open: how to open one, and the recent ones.
  virtual void SetStart(bool visible, const std::vector<TRecentItem>& recent) = 0;
};
