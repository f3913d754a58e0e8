#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "CommandActions.h"

/// How far a group has shrunk: as described, all buttons small, small without captions.
enum class TRibbonLevel { Full, Small, IconsOnly };

/// A button of the ribbon, in one of its three sizes.
class TRibbonToolButton : public QToolButton {
 public:
  TRibbonToolButton(QAction* action, bool large, bool beginsGroup, QWidget* parent);
  void SetLevel(TRibbonLevel level);
  bool IsLarge() const { return toolButtonStyle() == Qt::ToolButtonTextUnderIcon; }
  bool BeginsGroup() const { return FBeginsGroup; }

 protected:
  void initStyleOption(QStyleOptionToolButton* option) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool FLarge;
  bool FBeginsGroup;
};

/// A group of the ribbon: buttons, caption below, separator on the right. Places its buttons itself: large ones in a
/// column each, small ones in threes.
class TRibbonGroupBox : public QWidget {
 public:
  TRibbonGroupBox(const TRibbonGroup& group, TCommandActions& actions, QWidget* parent);

  const std::string& Id() const { return FId; }
  const std::vector<TRibbonToolButton*>& Buttons() const { return FButtons; }
  TRibbonLevel Level() const { return FLevel; }
  int WidthAt(TRibbonLevel level);
  void SetLevel(TRibbonLevel level);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Arrange(TRibbonLevel level);
  int RowHeight() const;
  int CaptionHeight() const;

  std::string FId;
  QString FCaption;
  std::vector<TRibbonToolButton*> FButtons;
  std::vector<int> FSeparators;
  TRibbonLevel FLevel = TRibbonLevel::Full;
};
