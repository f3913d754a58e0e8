#pragma once

#include <QObject>
#include <QRect>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class QLabel;
class QWidget;

/// The letters behind which captions are found: the one after "&" first, else the first letter of the caption that is
/// free, else a digit. One for each caption, no letter twice.
QStringList AssignKeyTips(const QStringList& captions);

/// One thing that a key tip leads to. It has its letter for good: while the widget is disabled or out of sight the
/// letter is not shown and does nothing, and nobody else gets it.
struct TKeyTipTarget {
  QWidget* Widget = nullptr;
  QString Caption;
  std::function<void()> Choose;
  bool LeadsOn = false;  ///< after it, the next targets are shown
  QRect Place = {};      ///< within the widget; all of it if empty
};

/// Shows letters over the ribbon when Alt is pressed and released alone, and takes the letter that is typed then. Alt
/// held with a letter of the first targets is the same at once.
class TKeyTips : public QObject {
 public:
  /// `firstTargets` are shown at first, `nextTargets` after one that leads on.
  using TTargets = std::function<std::vector<TKeyTipTarget>()>;
  TKeyTips(QWidget& window, TTargets firstTargets, TTargets nextTargets);

  bool IsShown() const { return !FTargets.empty(); }
  /// The letters of the targets, also of those that cannot be chosen.
  const QStringList& Letters() const { return FLetters; }
  void Hide();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show(const TTargets& targets, bool first);
  bool TakeKey(int key, const QString& letter);

  QWidget& FWindow;
  TTargets FFirst, FNext;
  std::vector<TKeyTipTarget> FTargets;
  QStringList FLetters;
  std::vector<QLabel*> FLabels;
  bool FAltAlone = false;
  bool FAtFirst = true;
};
