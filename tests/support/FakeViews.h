#pragma once

#include <map>
#include <memory>
#include <vector>

#include "MsgBoxes.h"
#include "fStudentsView.h"
#include "fWelcomeView.h"

/// The screens of the views and the settings store, without a screen.

class FakeItem : public TVantrelFormItem {
 public:
  TVariant Value() const override { return FValue; }
  void SetValue(const TVariant& value) override { FValue = value; }
  void SetEnabled(bool) override {}
  void SetVisible(bool visible) override { Visible = visible; }
  void SetFocus() override {}
  std::string Text() const { return FValue.AsTextOrEmpty(); }

  bool Visible = true;

 private:
  TVariant FValue;
};

class FakeWelcomeUi : public TWelcomeViewUi {
 public:
  FakeWelcomeUi() { Last = this; }
  ~FakeWelcomeUi() override { Last = nullptr; }
  static inline FakeWelcomeUi* Last = nullptr;

  void SetVisible(bool) override {}
  TVantrelFormItem& Text(TWelcomeText text) override { return Texts[text]; }
  void MoveCenterPanel(int, int) override {}
  void SetStart(bool visible, const std::vector<TRecentItem>& recent) override {
    Start = visible;
    Recent = recent;
  }

  std::map<TWelcomeText, FakeItem> Texts;
  bool Start = false;
  std::vector<TRecentItem> Recent;
};

/// Settings that last as long as the object.
class FakeSettings : public TVantrelStorage {
 public:
  FakeSettings() { SetActive(true); }

 protected:
  std::unique_ptr<TVantrelAbstractPreferences> OpenStore() override {
    return std::make_unique<TVantrelXMLPreferences>(CustomXMLFile(), true);
  }
};
