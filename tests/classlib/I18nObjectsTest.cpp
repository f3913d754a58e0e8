#include "VantrelI18nObjects.h"

#include "PublishedObjects.h"
#include "Testing.h"
#include "VantrelGraphics.h"
#include "VantrelLists.h"
#include "VantrelStringList.h"
#include "VantrelTypes.h"

namespace {
/// Publishes its caption for reading alone; to write it is public only.
struct TPanel final : TNode {
  const TVantrelClass* ClassReference() const override {
    static constexpr TVantrelProperty properties[] = {Published<&TNode::Caption>("Kind"),
                                                      Public<&TNode::Caption, &TNode::SetCaption>("Caption")};
    static constexpr TVantrelClass panel{.Name = "TPanel", .Properties = properties};
    return &panel;
  }
};

struct TPicture final : TStoredGraphic {
  std::string Caption() const { return FCaption; }
  void SetCaption(std::string caption) { FCaption = std::move(caption); }
  const TVantrelClass* ClassReference() const override {
    static constexpr TVantrelProperty properties[] = {Published<&TPicture::Caption, &TPicture::SetCaption>("Caption")};
    static constexpr TVantrelClass picture{.Name = "TPicture", .Properties = properties};
    return &picture;
  }
  std::string FCaption = "Ja";
};

TEST(I18n, ObjectsAreTranslatedWithWhatHangsOnThem) {
  TPanel panel;
  TPicture picture;
  TLeaf leaf, partner;
  TVantrelString text("Ja");
  TVantrelStringList lines;
  lines.Lines = {"Ja", "Nein"};
  TVantrelArrayList list(false);
  TVantrelObject* items[] = {&panel, &picture, &leaf, &text, &lines, &list};
  for (TVantrelObject* item : items) list.Add(item);
  panel.FCaption = leaf.FCaption = partner.FCaption = "Ja";
  leaf.SetPartner(&partner);
  partner.SetPartner(&leaf);
  TVantrelI18nManager manager;
  const TempFolder folder;
  WriteFileText(folder / "dictionary.ini",
                fmt::format("[Dictionary]\n{:08x}=Yes\n", TVantrelI18nManager::GetStringHash("Ja")));
  manager.LoadStrings(folder / "dictionary.ini");
  TranslateStrings(manager, list);
  EXPECT_EQ(leaf.Caption() + partner.Caption() + text.Value() + lines.Lines[0] + lines.Lines[1], "YesYesYesYesNein");
  EXPECT_EQ(panel.Caption() + picture.Caption(), "JaJa");
  TranslateStrings(manager, panel, true);
  EXPECT_EQ(panel.Caption(), "Yes");
  EXPECT_FALSE(TVantrelClassRTTI(*panel.ClassReference(), true).IsPropertyPublished("Caption"));
}
}  // namespace
