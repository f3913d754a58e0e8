#pragma once

#include <QListWidget>
#include <functional>
#include <vector>

#include "VantrelMainWindow.h"

/// The recent documents, one to a line; a click or Enter chooses one.
class TRecentList : public QListWidget {
 public:
  explicit TRecentList(const QString& name);

  std::function<void(int index)> OnChoose;
  /// `withFolder` adds to each display text where the document lies.
  void SetItems(const std::vector<TRecentItem>& items, bool withFolder = false);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};
