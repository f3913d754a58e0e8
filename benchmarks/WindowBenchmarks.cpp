#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "DesktopDialogs.h"
#include "DesktopGrid.h"
#include "DesktopListView.h"
#include "DesktopLook.h"
#include "DesktopMainWindow.h"
#include "DesktopStudentsView.h"
#include "DesktopTextDialog.h"
#include "DesktopWelcomeView.h"
#include "SampleProject.h"
#include "ViewTexts.h"
#include "dialogs/fTextDialog.h"
#include "fClassesView.h"
#include "fMain.h"
#include "fStudentsView.h"
#include "fSubjectsView.h"
#include "fWelcomeView.h"
#include "uGridSheet.h"

namespace {

/// Without the splash window, whose blending would be measured as well.
class TQuietDialogs : public TDesktopDialogs {
 public:
  void ShowSplash(const std::string&) override {}
};

/// Settings that last as long as the object.
class TMemStorage : public TVantrelStorage {
 public:
  TMemStorage() { SetActive(true); }

 protected:
  std::unique_ptr<TVantrelAbstractPreferences> OpenStore() override {
    return std::make_unique<TVantrelXMLPreferences>("", true);
  }
};

/// The program's own window with a sample of so many students, 12 courses each, open in it.
class TProgram {
 public:
  explicit TProgram(int students)
      : FPath(std::filesystem::temp_directory_path() / ("window-benchmark-" + std::to_string(::getpid()) + ".kvr7")) {
    auto project = CreateVantrel<TMyTessaronProject>();
    TSampleOptions options;
    options.Students = students;
    options.Classes = 2;  // marked by grades and by points, so that the grade columns are on show
    BuildSample(*project, options);
    project->SaveFile(FPath);
    project.reset();
    FForm = CreateVantrel<TMainForm>(
        TMainFormPorts{
            .Window = Window,
            .Dialogs = FDialogs,
            .Storage = FStorage,
            .Views = {{TMyTessaronViews::viewWelcome,
                       ViewClass<TWelcomeView>([this] { return std::make_unique<TDesktopWelcomeView>(Window); })},
                      {TMyTessaronViews::viewStudents,
                       ViewClass<TStudentsView>([this] { return std::make_unique<TDesktopStudentsView>(Window); })},
                      {TMyTessaronViews::viewSubjects, ViewClass<TSubjectsView>([this] {
                         return std::make_unique<TDesktopListView>(Window, ViewTexts::SubjectsLabel);
                       })},
                      {TMyTessaronViews::viewClasses, ViewClass<TClassesView>([this] {
                         return std::make_unique<TDesktopListView>(Window, ViewTexts::ClassesLabel);
                       })}},
            .RecoveryFolder = FPath.string() + ".state"},
        std::vector{FPath.string()});
    Window.resize(1366, 768);
    Window.show();
    Paint();
  }
  TProgram(const TProgram&) = delete;
  TProgram& operator=(const TProgram&) = delete;
  ~TProgram() {
    CurrentProject->SetModified(false);
    FForm.reset();
    std::filesystem::remove_all(FPath.string() + ".state");
    std::filesystem::remove(FPath);
  }

  /// Handles what is waiting, the painting above all.
  static void Paint() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
  void Show(TMyTessaronViews view) {
    FForm->ShowView(view, true);
    Paint();
  }
  void ShowStudents() { Show(TMyTessaronViews::viewStudents); }
  void ShowWelcome() {
    FForm->ShowView(TMyTessaronViews::viewWelcome, false);
    Paint();
  }
  TDesktopGrid& Grid(bool list) {
    for (auto* widget : Window.findChildren<QWidget*>())
      if (auto* grid = dynamic_cast<TDesktopGrid*>(widget);
          grid != nullptr && grid->isVisible() && grid->Options().ReadOnly == list)
        return *grid;
    throw std::logic_error("no view with such a grid is on show");
  }

  TDesktopMainWindow Window;

 private:
  std::filesystem::path FPath;
  TQuietDialogs FDialogs;
  TMemStorage FStorage;
  TVantrelPtr<TMainForm> FForm;
};

/// What takes the keys: the open editor, else the grid.
QWidget* Keyboard(TDesktopGrid& grid) {
  auto* editor = grid.View().indexWidget(grid.View().currentIndex());
  return editor != nullptr && grid.IsEditing() ? editor : &grid.View();
}

template <class TView>
void ShowByKey(benchmark::State& state, Qt::Key key, TView*& view) {
  TProgram program(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    program.ShowWelcome();
    state.ResumeTiming();
    QTest::keyClick(&program.Window, key);
    program.Paint();
    if (view == nullptr) return state.SkipWithError("the key did nothing");
  }
}

void ShowStudents(benchmark::State& state) {
  ShowByKey(state, Qt::Key_F9, StudentsView);
}

void ShowSubjects(benchmark::State& state) {
  ShowByKey(state, Qt::Key_F10, SubjectsView);
}

void ShowClasses(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  for (auto _ : state) program.Show(TMyTessaronViews::viewClasses);
}

/// The key in the list of the view, at whose end it turns.
void Next(benchmark::State& state, TMyTessaronViews view) {
  TProgram program(static_cast<int>(state.range(0)));
  program.Show(view);
  auto& list = program.Grid(true);
  auto key = Qt::Key_Down;
  for (auto _ : state) {
    if (list.FocusedRecord() == list.RecordCount() - 1) key = Qt::Key_Up;
    if (list.FocusedRecord() == 0) key = Qt::Key_Down;
    QTest::keyClick(&list.View(), key);
    program.Paint();
  }
}

void NextStudent(benchmark::State& state) {
  Next(state, TMyTessaronViews::viewStudents);
}

void NextSubject(benchmark::State& state) {
  Next(state, TMyTessaronViews::viewSubjects);
}

/// Grades typed into a column: a digit opens the editor with its drop-down, marks and posts; Enter goes down.
void TypeGrades(benchmark::State& state, TProgram& program) {
  auto& grid = program.Grid(false);
  grid.SetFocus();
  bool digit = true;
  for (auto _ : state) {
    if (digit)
      QTest::keyClick(Keyboard(grid), '2');
    else
      QTest::keyClick(Keyboard(grid), Qt::Key_Return);
    program.Paint();
    if (grid.IsEditing() != digit) return state.SkipWithError("no editor");
    digit = !digit;
    if (!digit || grid.CanGotoNext()) continue;
    state.PauseTiming();
    grid.GotoFirst();
    program.Paint();
    state.ResumeTiming();
  }
}

void Keystroke(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  program.ShowStudents();
  TypeGrades(state, program);
}

/// In the grades of one subject, each of which its list counts as entered or open.
void KeystrokeInSubject(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  program.Show(TMyTessaronViews::viewSubjects);
  SubjectsView->UpdateFilter(0, TVariant::Null());
  program.Paint();
  TypeGrades(state, program);
}

/// The key that opens an editor with its drop-down, alone.
void FirstKey(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  program.ShowStudents();
  auto& grid = program.Grid(false);
  grid.SetFocus();
  for (auto _ : state) {
    QTest::keyClick(Keyboard(grid), '2');
    program.Paint();
    if (!grid.IsEditing()) return state.SkipWithError("no editor");
    state.PauseTiming();
    QTest::keyClick(Keyboard(grid), Qt::Key_Escape);
    program.Paint();
    state.ResumeTiming();
  }
}

void SortByHeader(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  program.ShowStudents();
  auto& list = program.Grid(true);
  for (auto _ : state) {
    list.ClickHeader(2, false);
    program.Paint();
  }
}

/// A key of the incremental search that is found far from the focus, and what follows the change of student.
void Search(benchmark::State& state) {
  TProgram program(static_cast<int>(state.range(0)));
  program.ShowStudents();
  auto& list = program.Grid(true);
  list.FocusColumn(3);
  list.SetFocus();
  bool back = false;
  for (auto _ : state) {
    QTest::keyClick(&list.View(), back ? 'a' : 'w');
    program.Paint();
    state.PauseTiming();
    if (list.View().SearchText().isEmpty()) return state.SkipWithError("nothing found");
    list.View().EndSearch();
    back = !back;
    state.ResumeTiming();
  }
}

/// All columns of the subjects view and all its rows, to the bytes of a file of that kind.
void Export(benchmark::State& state, const std::function<void(const TSheet&)>& write) {
  TProgram program(2000);
  program.Show(TMyTessaronViews::viewSubjects);
  auto& grid = program.Grid(false);
  for (int i = 0; i < static_cast<int>(grid.Columns().size()); ++i) grid.ShowColumn(i, true);
  std::size_t cells = 0;
  for (auto _ : state) {
    const auto sheet = SheetOf(grid, "Deutsch", true);
    cells = sheet.Rows.size() * sheet.Captions.size();
    write(sheet);
  }
  state.counters["cells"] = static_cast<double>(cells);
}

void ExportXls(benchmark::State& state) {
  Export(state, [](const TSheet& sheet) { benchmark::DoNotOptimize(XlsBytes(sheet)); });
}

void ExportHtml(benchmark::State& state) {
  Export(state, [](const TSheet& sheet) { benchmark::DoNotOptimize(HtmlPage(sheet)); });
}

/// Opens the dialog of an assessment with its dictionary, lets `use` have it when it is painted, and closes it.
class TTextDialogs {
 public:
  TTextDialogs() { FLookups.Initialize(); }

  void Open(std::string text, const std::function<void(QWidget& memo)>& use) {
    const std::function<std::unique_ptr<TTextDialogUi>()> createUi = [&use] {
      auto ui = std::make_unique<TDesktopTextDialog>();
      auto& dialog = *ui;
      QTimer::singleShot(0, &dialog, [&dialog, &use] {
        TProgram::Paint();
        use(*dialog.findChild<TMemoEdit*>());
        dialog.OnCloseQuery = nullptr;
        dialog.Close(false);
      });
      return ui;
    };
    const std::function<std::unique_ptr<TCorrectionUi>()> none;
    EditZeugnisbeurteilung({createUi, none, FLookups, *FOptions, FWaitCursor}, "D", text);
  }

 private:
  TProgram FProgram{120};
  TLookupTables FLookups{*CurrentProject};
  TVantrelPtr<TMyTessaronOptions> FOptions = CreateVantrel<TMyTessaronOptions>("", "");
  TQuietDialogs FDialogs;
  TVantrelWaitCursor FWaitCursor{FDialogs};
};

const std::string Sentence = "Sören arbeitet fleißig mit und trägt gern zum Unterrichtsgesprech bei. ";

void OpenTextDialog(benchmark::State& state) {
  TTextDialogs dialogs;
  for (auto _ : state) dialogs.Open(Sentence, [](QWidget&) {});
}

/// A key in the middle of one long paragraph with mistakes, and one that takes it back.
void KeyInText(benchmark::State& state) {
  TTextDialogs dialogs;
  std::string text;
  while (text.size() < 5000) text += Sentence;
  dialogs.Open(text, [&state](QWidget& memo) {
    auto cursor = static_cast<QPlainTextEdit&>(memo).textCursor();
    cursor.setPosition(2500);
    static_cast<QPlainTextEdit&>(memo).setTextCursor(cursor);
    bool types = true;
    for (auto _ : state) {
      QTest::keyClick(&memo, types ? Qt::Key_E : Qt::Key_Backspace);
      TProgram::Paint();
      types = !types;
    }
  });
}

BENCHMARK(OpenTextDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(KeyInText)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowStudents)->Arg(120)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(NextStudent)->Arg(120)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowSubjects)->Arg(28)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(NextSubject)->Arg(28)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowClasses)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(Keystroke)->Arg(120)->Unit(benchmark::kMillisecond);
BENCHMARK(KeystrokeInSubject)->Arg(28)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstKey)->Arg(120)->Unit(benchmark::kMillisecond);
BENCHMARK(SortByHeader)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(Search)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportXls)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportHtml)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  PrepareApplication(application);
  TMyTessaronProject::RegisterClasses();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
