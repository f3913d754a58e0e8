#include <fmt/format.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <map>

#include "DesktopFieldForm.h"
#include "LookupEdit.h"
#include "ScreenReader.h"
#include "StudentsViewFixture.h"
#include "uCertificateFields.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using enum TStudentsPage;

/// The page of the certificate data, all of it open, turned to by its keys.
class CertificateDataTest : public StudentsViewTest {
 protected:
  using TFields = std::map<std::string, std::string>;

  void SetUp() override {
    StudentsViewTest::SetUp();
    for (int i = 0; i < Columns().Count(); ++i)
      if (!Columns().GetItem(i)->GridColumn) Columns().GetItem(i)->Visible = Columns().GetItem(i)->Editable = true;
    const struct {
      TCatalogs& Catalogs;
      const char* Token;
    } added[] = {{FProject->Abschluesse(), "MSA"},
                 {FProject->Abschluesse(), "EMSA"},
                 {FProject->Abschlussarten(), "P"},
                 {FProject->Abschlussarten(), "V"},
                 {FProject->Versetzungsarten(), "VR"}};
    for (const auto& [catalogs, token] : added) catalogs.AddCatalog(token, "");
    FLookups.OfOpen().Initialize();
    FProject->SetModified(false);
  }
  TColumns& Columns() { return FProject->Options().Columns(); }
  void OpenPage() {
    Open();
    QTest::keyClick(&List().View(), Qt::Key_PageDown, Qt::ControlModifier);
    ASSERT_EQ(FUi->ActivePage(), CertificateDataSheet);
    QTest::keyClick(&List().View(), Qt::Key_Tab);
  }
  TVantrelFieldForm& Form() { return FUi->CertificateData(); }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  static void Type(const std::string& text) { QTest::keyClicks(QApplication::focusWidget(), text.c_str()); }
  static std::string Focus() { return QApplication::focusWidget()->accessibleName().toStdString(); }
  static QString Shown() {
    const auto* widget = QApplication::focusWidget();
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    if (line == nullptr) line = widget->findChild<QLineEdit*>();
    return line->text().isEmpty() ? "[" + line->placeholderText() + "]" : line->text();
  }
  QString CaptionOf(const QWidget& editor) {
    for (const auto* label : FWindow.findChildren<QLabel*>())
      if (label->buddy() == &editor) return label->text();
    return {};
  }
  TFields FieldsOf(int student) {
    TFields fields;
    Student(student).VisitFields([&](std::string_view key, const TVariant& value) {
      fields[std::string(key)] = value.IsNull() ? "null"
                                                : fmt::format("{} {:.17g}", value.AsText(),
                                                              value.Kind() == TVariantKind::Text ? 0 : value.AsFloat());
    });
    return fields;
  }
};

TEST_F(CertificateDataTest, EachFieldIsReachedByTabAndWritesItsOwn) {
  for (const auto& field : CertificateFields(TCertificateUse::Page))
    FProject->ChangeField(Student(0), field.Key, TVariant::Null());
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtPoints);
  OpenPage();
  const auto two = FLookups.OfOpen().Grades.Lookup("Token", "2", "ID");
  const auto june = TVariant::DateTime(46192);
  const struct {
    const char* Name;
    const char* Key;
    const char* Typed;
    TVariant Stored;
  } fields[] = {{"Abschluss 1", "Abschluss1", "MSA", "MSA"},
                {"Abschlussart 1", "Abschluss1Art", "P", "P"},
                {"Abschlussdatum 1", "Abschluss1Datum", "19.6.2026", june},
                {"Abschlussnote 1", "Abschluss1Note", "2.3", 2.3},
                {"Abschluss 2", "Abschluss2", "EM", "EMSA"},
                {"Abschlussart 2", "Abschluss2Art", "v", "V"},
                {"Abschlussdatum 2", "Abschluss2Datum", "19.6.26", june},
                {"Abschlussnote 2", "Abschluss2Note", "1", 1.0},
                {"Versetzt", "Versetzt", "n", "N"},
                {"Versetzungsart", "Versetzungsart", "VR", "VR"},
                {"Zeugniskonferenz", "Zeugniskonferenz", "19.6.2026", june},
                {"Zeugnisdatum", "Zeugnisdatum", "19.6.2026", june},
                {"Leistungsanforderung", "Leistungsanforderung", "e", "J"},
                {"Verhalten", "VerhaltenGradeId", "2", two},
                {"Mitarbeit", "MitarbeitGradeId", "2", two},
                {"Unterrichtstage", "Unterrichtstage", "2147483647", 2147483647},
                {"Versäumnisse", "Versaeumnisse", "0", 0},
                {"Fehltage", "Fehltage", "3", 3},
                {"Fehltage, davon untentschuldigt", "FehltageU", "1", 1},
                {"Fehlstunden", "Fehlstunden", "5", 5},
                {"Fehlstunden, davon unentschuldigt", "FehlstundenU", "4", 4},
                {"Fehltage Praktikum", "FehltagePraktikum", "2", 2},
                {"Fehltage Praktikum, davon unentschuldigt", "FehltagePraktikumU", "2", 2}};
  for (const auto& [name, key, typed, stored] : fields) {
    EXPECT_EQ(Focus(), name);
    EXPECT_EQ(QString(name).split(", ").last(), CaptionOf(*QApplication::focusWidget()));
    auto expected = FieldsOf(0);
    Type(typed);
    EXPECT_EQ(TStudent::FieldOf(key)->Value(Student(0)), stored) << key;
    auto after = FieldsOf(0);
    expected[key] = after[key];
    EXPECT_EQ(after, expected) << key;
    Key(Qt::Key_Tab);
  }
  EXPECT_THAT(Nameless(FWindow), testing::IsEmpty());
  std::map<std::string, int> roles;
  Form().SetFocus("Abschluss1");
  for (const auto& place : TabWalk(FWindow)) ++roles[place.substr(0, place.find(' '))];
  EXPECT_EQ(roles["ComboBox"], 9);
  EXPECT_EQ(roles["SpinBox"], 10);
  EXPECT_EQ(roles["EditableText"], 4) << "dates";
}

TEST_F(CertificateDataTest, WhatIsOnlySeenStaysAsItIs) {
  auto& student = Student(0);
  student.Abschluss1 = "???";
  student.Versetzt = "X";
  student.Abschluss1Note.SetAsFloat(2.345F);
  student.Abschluss1Datum.SetAsDateTime(46192.75);
  student.Zeugnisdatum.SetAsDateTime(1e9);
  student.VerhaltenGradeId.SetAsInt(4711);
  student.Fehltage.SetAsInt(0);
  OpenPage();
  std::vector<TFields> before;
  for (int i = 0; i < FProject->Students().Count(); ++i) before.push_back(FieldsOf(i));
  std::vector<std::string> shown;
  for (std::size_t i = 0; i < CertificateFields(TCertificateUse::Page).size(); ++i) {
    shown.push_back(Shown().toStdString());
    Key(Qt::Key_Tab);
  }
  EXPECT_FALSE(FWindow.findChild<TLookupEdit*>()->hasSelectedText());
  EXPECT_EQ(shown[0], "???");
  EXPECT_EQ(shown[2], "19.06.2026");
  EXPECT_EQ(shown[3], "2,35");
  EXPECT_EQ(shown[8], "X");
  EXPECT_EQ(shown[11], "ungültiges Datum");
  EXPECT_EQ(shown[13], "[]");
  EXPECT_EQ(shown[17], "0");
  List().SetFocus();
  for (int i = 1; i < FProject->Students().Count(); ++i) Key(Qt::Key_Down);
  for (int i = 0; i < FProject->Students().Count(); ++i) EXPECT_EQ(FieldsOf(i), before[i]) << i;
  EXPECT_FALSE(FProject->Modified());
}

TEST_F(CertificateDataTest, DeleteEmptiesWhereItIsToldAndNullHasItsText) {
  auto& student = Student(0);
  OpenPage();
  for (const auto& field : CertificateFields(TCertificateUse::Page)) {
    const bool isGrade = field.Key.ends_with("GradeId"), isText = field.ValueKind == TValueKind::Text;
    const bool isDate = field.ValueKind == TValueKind::Date;
    const auto grade = FLookups.OfOpen().Grades.ValueAt(0, 0);
    FProject->ChangeField(student, field.Key,
                          isText    ? TVariant("V")
                          : isDate  ? TVariant::DateTime(1e9)
                          : isGrade ? grade
                                    : TVariant(7));
    Form().SetFocus(std::string(field.Fieldname));
    Key(Qt::Key_Delete);
    const bool stays = field.Fieldname == "Unterrichtstage" || field.Fieldname == "Versaeumnisse";
    EXPECT_EQ(field.Value(student).IsNull(), !stays) << field.Fieldname;
    if (stays) {
      Key(Qt::Key_A, Qt::ControlModifier);
      Key(Qt::Key_Delete);
      EXPECT_FALSE(field.Value(student).IsNull()) << field.Fieldname;
      Key(Qt::Key_Backspace);
    }
    const bool hasDash = field.Fieldname == "ZeugniskonferenzAm" || field.Fieldname == "Zeugnisdatum";
    EXPECT_EQ(Shown(), hasDash ? "[-]" : field.Fieldname == "Unterrichtstage" ? "[(NULL)]" : "[]") << field.Fieldname;
  }
  EXPECT_EQ(student.Zeugnisdatum.AsDateTime(), 0);
  EXPECT_EQ(student.Abschluss1, "");
}

TEST_F(CertificateDataTest, KeysOfTheFields) {
  auto& student = Student(0);
  student.Zeugnisdatum.SetAsDateTime(46192);
  student.Abschluss2Datum.SetNull();
  OpenPage();
  Key(Qt::Key_Return);
  EXPECT_EQ(Focus(), "Abschlussart 1");
  Key(Qt::Key_Return);
  EXPECT_EQ(Focus(), "Abschlussart 1");
  Form().SetFocus("Zeugnisdatum");
  Key(Qt::Key_A, Qt::ControlModifier);
  Type("31.2.2026");
  EXPECT_EQ(student.Zeugnisdatum.AsDateTime(), 46192);
  List().SetFocus();
  EXPECT_EQ(student.Zeugnisdatum.AsDateTime(), 46192);
  Form().SetFocus("Zeugnisdatum");
  EXPECT_EQ(Shown(), "19.06.2026");
  Key(Qt::Key_Up);
  EXPECT_EQ(student.Zeugnisdatum.AsDateTime(), 46193);
  Key(Qt::Key_Escape);
  EXPECT_EQ(student.Zeugnisdatum.AsDateTime(), 46192);
  Form().SetFocus("Abschluss2Datum");
  Key(Qt::Key_Down);
  EXPECT_TRUE(student.Abschluss2Datum.IsNull());
  QTest::keyClick(&FWindow, Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_TRUE(List().View().hasFocus());
  QTest::keyClick(&List().View(), Qt::Key_F6);
  EXPECT_EQ(Focus(), "Abschlussdatum 2");
}

TEST_F(CertificateDataTest, GradesAreThoseOfThePageAfterPagesWereTurned) {
  FProject->Classes().Find(Student(0).ClassId.Value)->SetGradeType(TGradeTypes::gtPoints);
  OpenPage();
  Form().SetFocus("Mitarbeit");
  for (const auto key : {Qt::Key_PageUp, Qt::Key_PageDown}) Key(key, Qt::ControlModifier);
  EXPECT_EQ(Focus(), "Mitarbeit");
  Type("2");
  EXPECT_EQ(Student(0).MitarbeitGradeId.Value, FLookups.OfOpen().Grades.Lookup("Token", "2", "ID"));
}

TEST_F(CertificateDataTest, TheFileSaysWhatIsShownAndOpen) {
  const auto editor = [this](const char* name) {
    for (auto* widget : FWindow.findChildren<QWidget*>())
      if (widget->accessibleName() == name) return widget;
    return static_cast<QWidget*>(nullptr);
  };
  const auto groups = [this] {
    std::vector<std::string> titles;
    for (const auto* group : FWindow.findChildren<QGroupBox*>())
      if (group->isVisible()) titles.push_back(group->title().toStdString());
    return titles;
  };
  Columns().Find("Abschluss1")->Editable = false;
  Columns().Find("Verhalten")->Visible = false;
  Columns().Remove(Columns().Find("Mitarbeit"));
  Columns().Find("Leistungsanforderungen")->Fieldname = "Leistungsanforderung";
  Columns().Find("Leistungsanforderung")->Visible = false;
  Columns().Find("Zeugnisdatum")->Fieldname = "zeugnisdatum";
  Columns().Find("zeugnisdatum")->Visible = false;
  Columns().AddColumn("Fehltage", "Fehltage", false, false, true, 0);
  OpenPage();
  EXPECT_FALSE(editor("Abschluss 1")->isEnabled());
  EXPECT_FALSE(editor("Verhalten")->isVisible());
  for (const char* open : {"Mitarbeit", "Leistungsanforderung", "Zeugnisdatum", "Fehltage"})
    EXPECT_TRUE(editor(open)->isVisible() && editor(open)->isEnabled()) << open;
  EXPECT_THAT(groups(), ElementsAre("Abschlussdaten", "Versetzungs- und Zeugnisdaten", "Weitere Daten"));

  for (const auto& field : CertificateFields(TCertificateUse::Page))
    Columns().AddColumn(field.Fieldname, "", true, field.Fieldname == "FehltageU", false, 0);
  OpenPage();
  EXPECT_THAT(groups(), ElementsAre("Weitere Daten"));
  Columns().AddColumn("FehltageU", "", true, false, false, 0);
  Open();
  EXPECT_FALSE(FWindow.findChild<QTabWidget*>()->isTabVisible(1));
}

TEST_F(CertificateDataTest, FollowsTheStudentAndChangesFromElsewhere) {
  Student(0).Fehltage.SetAsInt(6);
  Student(1).Fehltage.SetAsInt(8);
  OpenPage();
  Form().SetFocus("Fehltage");
  EXPECT_EQ(Shown(), "6");
  FView->GotoNext();
  EXPECT_EQ(Shown(), "8");
  FProject->ChangeField(Student(0), "Fehltage", 5);
  EXPECT_EQ(Shown(), "8");
  FProject->ChangeField(Student(1), "Fehltage", 9);
  EXPECT_EQ(Shown(), "9");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Student(1).Fehltage.AsInt(), 9);
  FView->GotoPrev();
  Type("3");
  EXPECT_EQ(Student(0).Fehltage.AsInt(), 3);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Student(0).Fehltage.AsInt(), 5) << "what this student had, not what the field had before";
  FView->GotoNext();

  FProject->SetModified(false);
  FUi->SetActivePage(AchievementSheet);
  Form().OnChange("Fehltage");
  EXPECT_FALSE(FProject->Modified()) << "a hidden page writes nothing";
  FUi->SetActivePage(CertificateDataSheet);
  Filter(4712);
  EXPECT_TRUE(Form().Value("Fehltage").IsNull());
  EXPECT_FALSE(FWindow.findChild<QTabWidget*>()->isEnabled());
  EXPECT_FALSE(FProject->Modified());
  List().LiftFilter();
  EXPECT_EQ(Form().Value("Fehltage"), TVariant(9));
  FProject->Students().Clear();
  Open();
  Form().SetFocus("Fehltage");
  EXPECT_NE(Focus(), "Fehltage");
}

}  // namespace
