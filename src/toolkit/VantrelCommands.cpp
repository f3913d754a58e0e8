#include "VantrelCommands.h"

std::string TVantrelCommand::Hint() const {
  if (!FHint.empty()) return FHint;
  std::string hint = FInfo.Caption;
  std::erase(hint, '&');
  std::erase(hint, '.');
  return hint;
}

void TVantrelCommand::SetHint(std::string hint) {
  if (hint == FHint) return;
  FHint = std::move(hint);
  if (OnChanged) OnChanged();
}

void TVantrelCommand::Change(bool& state, bool value) {
  if (state == value) return;
  state = value;
  if (OnChanged) OnChanged();
}

void TVantrelCommand::SetEnabled(bool enabled) {
  Change(FEnabled, enabled);
}

void TVantrelCommand::SetVisible(bool visible) {
  Change(FInfo.Visible, visible);
}

void TVantrelCommand::SetChecked(bool checked) {
  if (checked && !FInfo.RadioGroup.empty()) {
    for (const auto& other : FOwner.All())
      if (other.get() != this && other->FInfo.RadioGroup == FInfo.RadioGroup) other->Change(other->FChecked, false);
  }
  Change(FChecked, checked);
}

void TVantrelCommand::Execute() {
  if (!FEnabled) return;
  if (!FInfo.RadioGroup.empty()) SetChecked(true);
  if (FInfo.OnExecute) FInfo.OnExecute();
}

TVantrelCommand& TVantrelCommands::Add(TCommandInfo info) {
  return *FCommands.emplace_back(std::make_unique<TVantrelCommand>(*this, std::move(info)));
}
