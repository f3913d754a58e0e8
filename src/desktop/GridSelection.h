#pragma once

#include <QItemSelection>
#include <cstdint>
#include <functional>
#include <set>
#include <vector>

class TGridView;

/// The selected records of a grid in the order in which they were selected; those that were selected at once stand from
/// the top. It follows the selection of the view, and keeps the records when rows come to stand elsewhere.
class TGridSelection {
 public:
  explicit TGridSelection(TGridView& view);

  /// By their present index in the source.
  std::vector<int> Records() const;
  /// Selects these alone, in this order; what is not shown is passed over.
  void Select(const std::vector<int>& records);
  void SelectAllShown();
  /// Other records take the place of those that were there.
  void Forget() { FEntries.clear(); }

  /// A bracket in which the rows are built anew. Records that are not shown at its end are not selected any more.
  /// Unless `keeps`, the record with the focus alone is selected then, as the view has it.
  void Suspend() { FSuspended = true; }
  void Resume(bool keeps);

  /// Other records are selected.
  std::function<void()> OnChange;

 private:
  struct TEntry {
    int Record = -1;
    std::uint64_t Id = 0;
  };

  void Changed(const QItemSelection& selected, const QItemSelection& deselected);
  /// The selected rows around the focus that follow one another.
  std::set<int> FocusedRange() const;
  void Add(int row);
  void SelectInView();
  void Tell();

  TGridView& FView;
  std::vector<TEntry> FEntries;
  bool FSuspended = false;
};
