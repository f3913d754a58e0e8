#include "DesktopFieldForm.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
#include <utility>

#include "DesktopLook.h"
#include "FieldEdit.h"
#include "QtText.h"

namespace {
/// The least that an editor needs: room for a date, and for the longest of its entries.
int LeastWidth(const TEditorDescription& description, const QWidget& editor) {
  const auto metrics = editor.fontMetrics();
  int text = metrics.horizontalAdvance("00.00.0000");
  for (const auto& item : description.Items) text = std::max(text, metrics.horizontalAdvance(FromUtf8(item.Text)));
  const int letter = qobject_cast<const QLineEdit*>(&editor) != nullptr ? metrics.maxWidth() : 0;
  return editor.minimumSizeHint().width() - letter + text;
}
}  // namespace

TDesktopFieldForm::TDesktopFieldForm(QWidget* parent) : QWidget(parent) {
  auto* layout = new QHBoxLayout(this);
  layout->addStretch();
}

void TDesktopFieldForm::SetFields(const TFormDescription& form) {
  auto* row = static_cast<QHBoxLayout*>(layout());
  for (const auto& group : form.Groups) {
    auto* box = new QGroupBox(FromUtf8(group.Caption));
    box->setAlignment(Qt::AlignHCenter);
    auto* fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    for (const auto& field : group.Fields) {
      AddField(*fields, field, form);
      FFields[field.Key].StartsGroup = &field == &group.Fields.front();
    }
    auto* column = new QVBoxLayout(box);
    const auto edges = column->contentsMargins();
    column->addStrut(static_cast<int>(std::lround(group.Width * FontScale(*box))) - edges.left() - edges.right());
    column->addLayout(fields);
    column->addStretch();
    row->insertWidget(row->count() - 1, box);
    FGroups[group.Key] = box;
  }
  UpdateGaps();
  for (std::size_t i = 1; i < FTabOrder.size(); ++i) setTabOrder(FTabOrder[i - 1], FTabOrder[i]);
}

TDesktopFieldForm::~TDesktopFieldForm() {
  // The editors lose the keyboard while they go.
  Release();
}

void TDesktopFieldForm::Release() {
  OnChange = OnType = OnLeave = OnTick = nullptr;
  for (const auto& [key, field] : FFields) field.Edit->Release();
}

QWidget* TDesktopFieldForm::AddLabel(TField& added, const TFormField& field, bool ticks) {
  // Captions come from the file: nothing in them is a sign.
  const QString caption = FromUtf8(field.Caption).replace('&', "&&");
  if (!ticks) {
    auto* label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&added.Edit->Editor().Widget());
    return label;
  }
  added.Tick = new QCheckBox(caption);
  connect(added.Tick, &QCheckBox::toggled, this, [this, key = field.Key] {
    if (const auto handler = OnTick) handler(key);
  });
  return added.Tick;
}

void TDesktopFieldForm::AddField(QGridLayout& layout, const TFormField& field, const TFormDescription& form) {
  constexpr int gapHeight = 8;
  auto& added = FFields[field.Key];
  FOrder.push_back(&added);
  if (field.StartsBlock) {
    added.Gap = new QWidget;
    added.Gap->setFixedHeight(gapHeight);
    layout.addWidget(added.Gap, layout.rowCount(), 0);
  }
  added.Edit = new TFieldEdit(field.Editor, this);
  if (form.KeepsWrong) added.Edit->KeepWrong();
  added.Edit->OnChange = [this, key = field.Key] {
    if (const auto handler = OnChange) handler(key);
  };
  added.Edit->OnType = [this, key = field.Key] {
    if (const auto handler = OnType) handler(key);
  };
  added.Edit->OnLeave = [this, key = field.Key] {
    if (const auto handler = OnLeave) handler(key);
  };
  auto& editor = added.Edit->Editor().Widget();
  editor.setAccessibleName(FromUtf8(field.Name.empty() ? field.Caption : field.Name));
  editor.setMinimumWidth(LeastWidth(field.Editor, editor));
  added.Label = AddLabel(added, field, form.Ticks);
  const int row = layout.rowCount();
  layout.addWidget(added.Label, row, 0);
  layout.addWidget(&editor, row, 1);
  if (form.Ticks) FTabOrder.push_back(added.Label);
  FTabOrder.push_back(&editor);
  if (!form.Note.empty()) {
    added.Note = new QLabel(FromUtf8(form.Note));
    auto policy = added.Note->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    added.Note->setSizePolicy(policy);
    added.Note->hide();
    layout.addWidget(added.Note, row, 2);
  }
}

void TDesktopFieldForm::UpdateGaps() {
  bool isAbove = false;
  QWidget* gap = nullptr;
  for (const auto* field : FOrder) {
    if (field->StartsGroup) isAbove = false;
    if (field->StartsGroup || field->Gap != nullptr) gap = field->Gap;
    if (field->Gap != nullptr) field->Gap->hide();
    if (!field->IsVisible) continue;
    if (auto* above = std::exchange(gap, nullptr); above != nullptr && isAbove) above->show();
    isAbove = true;
  }
}

const TDesktopFieldForm::TField* TDesktopFieldForm::Find(const std::string& key) const {
  const auto found = FFields.find(key);
  return found == FFields.end() ? nullptr : &found->second;
}

TVariant TDesktopFieldForm::Value(const std::string& key) const {
  const auto* field = Find(key);
  return field == nullptr ? TVariant::Null() : field->Edit->Value();
}

void TDesktopFieldForm::SetValue(const std::string& key, const TVariant& value) {
  if (const auto* field = Find(key)) field->Edit->SetValue(value);
}

bool TDesktopFieldForm::IsValid(const std::string& key) const {
  const auto* field = Find(key);
  return field != nullptr && field->Edit->IsValid();
}

void TDesktopFieldForm::Check() {
  for (const auto& [key, field] : FFields) field.Edit->Check();
}

void TDesktopFieldForm::SetEnabled(const std::string& key, bool enabled) {
  if (const auto* field = Find(key)) field->Edit->Editor().Widget().setEnabled(enabled);
}

void TDesktopFieldForm::SetVisible(const std::string& key, bool visible) {
  const auto field = FFields.find(key);
  if (field == FFields.end()) return;
  field->second.IsVisible = visible;
  field->second.Label->setVisible(visible);
  field->second.Edit->Editor().Widget().setVisible(visible);
  UpdateGaps();
}

void TDesktopFieldForm::SetGroupVisible(const std::string& key, bool visible) {
  if (const auto group = FGroups.find(key); group != FGroups.end()) group->second->setVisible(visible);
}

bool TDesktopFieldForm::IsTicked(const std::string& key) const {
  const auto* field = Find(key);
  return field != nullptr && field->Tick != nullptr && field->Tick->isChecked();
}

void TDesktopFieldForm::SetTicked(const std::string& key, bool ticked) {
  const auto* field = Find(key);
  if (field == nullptr || field->Tick == nullptr) return;
  const QSignalBlocker silent(field->Tick);
  field->Tick->setChecked(ticked);
}

void TDesktopFieldForm::SetFocus(const std::string& key) {
  if (const auto* field = Find(key)) field->Edit->Editor().Widget().setFocus(Qt::OtherFocusReason);
}

void TDesktopFieldForm::ShowNote(const std::string& key, bool visible) {
  const auto* field = Find(key);
  if (field == nullptr || field->Note == nullptr) return;
  field->Note->setVisible(visible);
  field->Edit->Editor().Widget().setAccessibleDescription(visible ? field->Note->text() : QString());
}
