#pragma once

#include <QWidget>
#include <map>

#include "VantrelFieldForm.h"

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class TFieldEdit;

/// The form of fields as a widget: groups side by side, in each a column of labels and one of editors.
class TDesktopFieldForm : public QWidget, public TVantrelFieldForm {
 public:
  explicit TDesktopFieldForm(QWidget* parent = nullptr);
  ~TDesktopFieldForm() override;

  void SetFields(const TFormDescription& form) override;
  TVariant Value(const std::string& key) const override;
  void SetValue(const std::string& key, const TVariant& value) override;
  bool IsValid(const std::string& key) const override;
  void Check() override;
  void SetEnabled(const std::string& key, bool enabled) override;
  void SetVisible(const std::string& key, bool visible) override;
  void SetGroupVisible(const std::string& key, bool visible) override;
  bool IsTicked(const std::string& key) const override;
  void SetTicked(const std::string& key, bool ticked) override;
  void SetFocus(const std::string& key) override;
  void ShowNote(const std::string& key, bool visible) override;

  /// Nothing is told any more: who listens ends before the widget does.
  void Release();

 private:
  struct TField {
    TFieldEdit* Edit = nullptr;
    QCheckBox* Tick = nullptr;
    QLabel* Note = nullptr;
    QWidget* Label = nullptr;
    QWidget* Gap = nullptr;  ///< above the first field of a block
    bool StartsGroup = false;
    bool IsVisible = true;
  };

  void AddField(QGridLayout& layout, const TFormField& field, const TFormDescription& form);
  QWidget* AddLabel(TField& added, const TFormField& field, bool ticks);
  const TField* Find(const std::string& key) const;
  /// A gap stands between blocks of which something is shown.
  void UpdateGaps();

  std::map<std::string, TField> FFields;
  std::vector<const TField*> FOrder;
  std::map<std::string, QGroupBox*> FGroups;
  std::vector<QWidget*> FTabOrder;
};
