#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "app/commands/commands.h"
#include "app/commands/display.h"
#include "app/commands/velorix.h"
#include "app/commands/view_choices.h"
#include "app/state/refusals.h"
#include "datafiles/formats/ams_file.h"
#include "tests/datafiles/temp_folder.h"
#include "tests/stats/gauss_table.h"

namespace velorix {

/// Dialogs that answer from a script and keep what was asked.
struct ScriptedDialogs : Dialogs {
  std::deque<std::optional<FileAnswer>> Files;  // answers of the file dialogs, in order
  std::deque<int> Buttons;                      // answers of the boxes; the first button when empty
  int Entry = 0;                                // marked in the lists of boxes
  std::vector<FileQuestion> FileQuestions;
  std::vector<std::string> Boxes;  // "title|text|buttons"

  template <class Answer>
  static Answer Taken(std::deque<Answer>& answers) {
    Answer first{};
    if (!answers.empty()) first = answers.front(), answers.pop_front();
    return first;
  }
  std::optional<FileAnswer> ShowOpen(const FileQuestion& question) override {
    FileQuestions.push_back(question);
    return Taken(Files);
  }
  std::optional<FileAnswer> ShowSave(const FileQuestion& q) override { return ShowOpen(q); }
  int Ask(const std::string& title, const std::string& text,
          const std::vector<std::string>& buttons, int) override {
    Boxes.push_back(title + "|" + text);
    for (const std::string& button : buttons) Boxes.back() += "|" + button;
    return Taken(Buttons);
  }
  int AskWith(const std::string& title, const std::string& text, const std::string& detail,
              const std::vector<std::string>& buttons) override {
    return Ask(title, detail.empty() ? text : text + "|" + detail, buttons, 0);
  }
  ListAnswer AskList(const std::string& title, const std::string& text,
                     const std::vector<std::string>& entries,
                     const std::vector<std::string>& buttons, int defaultButton) override {
    ListAnswer answer = Dialogs::AskList(title, text, entries, buttons, defaultButton);
    answer.Entry = Entry;
    return answer;
  }
  void Warn(const std::string& title, const std::string& text) override {
    Ask("Warning: " + title, text, {"OK"}, 0);
  }
};

/// Views that keep the caption and count what was called.
struct RecordedViews : Views, WindowOpener {
  std::string Caption, Status;
  int Room = 200, Grids = 0, Groups = 0, CodeListsShown = 0;
  int Tables = 0, Selections = 0, GridHeaders = 0, Contours = 0;
  std::vector<PlotKind> Drawn;

  void SetCaption(const std::string& caption) override { Caption = caption; }
  int CaptionRoom() override { return Room; }
  void ShowChoices() override {}
  void ShowCodeLists() override { ++CodeListsShown; }
  void ShowGridHeader() override { ++GridHeaders; }
  void FillGrid() override { ++Grids; }
  void FillDataTable() override { ++Tables; }
  void ShowSelection() override { ++Selections; }
  void Redraw(PlotKind plot) override { Drawn.push_back(plot); }
  void ShowWindows() override {}
  void RefreshGroupStatistics() override { ++Groups; }
  void RefreshContour() override { ++Contours; }
  void ShowAbout() override {}
  void ShowManual() override {}
  void ShowOrientationEditor() override {}
  void ShowOrientationParameters() override {}
  void ShowFactorChoice() override {}
  void ShowFigureOptions() override {}
  void ShowAxes() override {}
  void ShowGedEditor() override {}
  void Exit() override {}
  void ShowStatus(const std::string& text) override { Status = text; }
};

/// A program without windows, with a folder of its own that goes with the test.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    Program.GaussTable = GaussNumbers();
    ReportBoxes(Asked, Seen, Program.Log);
  }

  using Texts = std::vector<std::string>;

  std::string Path(const std::string& name) const { return Own.File(name); }
  bool Exists(const std::string& name) const { return std::filesystem::exists(PathOf(Path(name))); }
  /// A file's bytes, and a file of such bytes.
  std::string Bytes(const std::string& name) const { return BytesOf(Path(name)); }
  std::string Put(const std::string& name, const std::string& bytes) const {
    PutFile(Path(name), bytes);
    return Path(name);
  }
  /// The answer of a file dialog that chose several files of the folder.
  std::string Several(const Texts& names) const {
    std::string list = Utf8Of(Folder) + '\0';
    for (const std::string& name : names) list += name + '\0';
    return list;
  }

  /// A record with a tensor, shown in the specimen and geographic systems.
  static SpecimenRecord Record(const std::string& name) {
    SpecimenRecord r;
    r.Name = name;
    r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
    r.OP = {6, 0, 6, 0};
    const float tensor[] = {1.05f, 1.0f, 0.95f, 0.01f, 0.02f, -0.01f};
    for (int i = 1; i <= 6; ++i) r.Tensor[i] = tensor[i - 1];
    r.OrientAz = 40;
    r.OrientInc = 20;
    return r;
  }
  static RecordArray ArrayOf(const std::vector<SpecimenRecord>& list) {
    RecordArray records;
    for (const SpecimenRecord& record : list) records.Add(record);
    return records;
  }
  /// An AMS file with these records, or with `count` records, "<name>1" and so on.
  std::string WriteRecords(const std::string& file, const std::vector<SpecimenRecord>& list) const {
    EXPECT_TRUE(WriteAmsFile(Path(file), ArrayOf(list), false, true));
    return Path(file);
  }
  std::string WriteFile(const std::string& name, int count) const {
    std::vector<SpecimenRecord> list;
    for (int i = 1; i <= count; ++i) list.push_back(Record(name + std::to_string(i)));
    return WriteRecords(name + ".ams", list);
  }
  void Answer(const std::string& path, int filter = 1) {
    Asked.Files.push_back(FileAnswer{path, filter});
  }
  void OpenFile(const std::string& path, int filter = 1) {
    Answer(path, filter);
    Menu("mnuOpen");
  }
  void Menu(const char* name) { RunMenu(Program, CommandNamed(name)); }
  void Button(const char* name) { RunButton(Program, CommandNamed(name)); }
  static std::string NamesOf(const RecordArray& records) {
    std::string names;
    for (const SpecimenRecord& r : records) names += r.Name + " ";
    return names;
  }
  std::string Names() const { return NamesOf(Program.Session.Records); }

  TempFolder Own;
  const std::filesystem::path& Folder = Own.Path;
  ScriptedDialogs Asked;
  RecordedViews Seen;
  Velorix Program{Asked, Seen, Seen,
                  Host{"", "", [](const std::string& folder, const std::string& extension) {
                         std::vector<std::string> names;
                         for (const auto& f : std::filesystem::directory_iterator(PathOf(folder)))
                           if (ExtensionOf(Utf8Of(f.path())) == extension)
                             names.push_back(Utf8Of(f.path().filename()));
                         std::sort(names.begin(), names.end());
                         return names;
                       }}};
  velorix::Session& Now = Program.Session;
};

}  // namespace velorix
