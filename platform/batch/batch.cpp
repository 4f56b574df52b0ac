#include "platform/batch/batch.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>

#include "app/commands/commands.h"
#include "app/commands/display.h"
#include "app/commands/picture_commands.h"
#include "app/commands/view_choices.h"
#include "app/display/contour.h"
#include "app/display/study_heading.h"
#include "app/edit/assign_ged.h"
#include "app/files/content_check.h"
#include "app/files/export_grid.h"
#include "app/files/file_kinds.h"
#include "app/files/losses.h"
#include "app/files/save.h"
#include "app/pictures/export_untilting.h"
#include "app/pictures/figure.h"
#include "app/pictures/style_file.h"
#include "app/state/refusals.h"
#include "app/tables/comparison_table.h"
#include "app/tables/data_table.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/settings/settings_file.h"
#include "platform/batch/batch_views.h"
#include "platform/batch/contour_output.h"
#include "platform/batch/groups_output.h"
#include "platform/batch/json.h"
#include "platform/batch/progress.h"
#include "platform/batch/summary.h"
#include "platform/batch/untilt_output.h"
#include "platform/painting/picture_file.h"
#include "stats/group/gauss_random.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

/// A run on the program's objects.
class Batch {
 public:
  Batch(const Arguments& arguments, const Host& host)
      : a_(arguments), velorix_{dialogs_, views_, views_, host} {
    velorix_.Host.WritePicture = WritePicture;
  }

  int Run() {
    if (!OutputsAreFree() || !TakeStyle() || !TakeSettings()) return 1;
    ChooseView();
    if (!Open()) return 1;
    if (!Step()) return 1;
    if (!ReadGeology() || !AssignOrientations()) return 1;
    ChooseCodes();
    if (!ChooseRecords()) return 2;
    if (!views_.Status.empty() && !dialogs_.Complained) std::cerr << views_.Status << "\n";
    if (!Count() || !CanCompare()) return 1;
    if (!WriteOutputs()) return 1;
    if (a_.Outputs().empty() && !a_.Quiet) {
      std::cout << Summary(velorix_);
      if (a_.Contour != 0) std::cout << ContourSummary(velorix_.Contour);
    }
    if (std::cout.flush()) return 0;
    std::cerr << "Standard output could not be written.\n";
    return 1;
  }

 private:
  /// Runs a menu command; false when it had to complain.
  bool Command(const char* name) {
    views_.Status.clear();
    dialogs_.Complained = false;
    RunMenu(velorix_, CommandNamed(name));
    return !dialogs_.Complained;
  }

  /// What keeps an output from being begun, or nothing.
  const char* Obstacle(const std::string& output) const {
    if (output == "-") return nullptr;
    const fs::path path = fs::absolute(PathOf(output));
    if (fs::is_directory(path)) return "This is a folder.";
    if (!fs::is_directory(path.parent_path())) return "There is no such folder.";
    const bool goesOn = a_.Append && output == a_.Grid;
    if (fs::exists(path) && !a_.Force && !goesOn)
      return "This file already exists. Use --force to overwrite it.";
    return nullptr;
  }

  /// Checked before anything is read or written.
  bool OutputsAreFree() const {
    for (const std::string& output : a_.Outputs())
      if (const char* const obstacle = Obstacle(output)) {
        std::cerr << output << ": " << obstacle << "\n";
        return false;
      }
    return true;
  }

  bool TakeStyle() {
    if (a_.Style.empty()) return true;
    const Outcome outcome = ReadStyleFile(a_.Style, style_);
    if (!outcome) std::cerr << outcome.Title << ": " << outcome.Text << "\n";
    return outcome.Done;
  }

  bool TakeSettings() {
    Session& session = velorix_.Session;
    session.SettingsFile = a_.SettingsFile.empty()
                               ? JoinPath(velorix_.Host.AppFolder, "MarloAniso.sav")
                               : a_.SettingsFile;
    session.Preferences.KeepFormerFile = !a_.NoBackup;
    return Guarded(velorix_, [&] {
      LoadSettings(session.Settings, session.SettingsFile);
      ChooseFirstPlots(velorix_);
      FillGaussTable(velorix_.GaussTable, [] {});
    });
  }

  void ChooseView() {
    ChooseTectoAxis(velorix_, TectoAxisAt(a_.Axis));
    ChooseTectoPlane(velorix_, PlaneAt(a_.Plane));
    ChooseCoorSys(velorix_, SystemAt(a_.CoorSys));
    velorix_.Session.ReImMode = a_.Block == 1 ? OutOfPhase : InPhase;
    velorix_.Plots.Stereo.level = static_cast<ErrorLevel>(a_.Level);
    velorix_.Bootstrap = {
        static_cast<BootMethod>(a_.Bootstrap), static_cast<int>(a_.Replicates), {}};
    if (a_.Seed >= 0) velorix_.Bootstrap.Seed = static_cast<std::uint32_t>(a_.Seed);
  }

  static std::string Absolute(const std::string& path) {
    return Utf8Of(fs::absolute(PathOf(path)).lexically_normal());
  }

  bool Open() {
    std::string names = Absolute(a_.Files.front());
    if (a_.Files.size() > 1) {
      names = FolderOf(names) + '\0';
      for (const std::string& file : a_.Files) names += Absolute(file) + '\0';
    }
    dialogs_.Answers = {FileAnswer{names, a_.Filter}};
    const bool opened = Command("mnuOpen");
    if (const std::string doubt = ContentDoubt(velorix_.Session); !doubt.empty()) {
      std::cerr << (views_.Status.starts_with(doubt) ? views_.Status : doubt) << "\n";
      views_.Status.clear();
    }
    if (!opened) return false;
    if (velorix_.Session.RecordCount() > 0) return true;
    std::cerr << a_.Files.front() << ": no record could be read.\n";
    return false;
  }

  bool Step() {
    bool good = !a_.Reload || Command("mnuReload");
    for (int i = 0; good && i < a_.Next; ++i) good = Command("mnuOpenNext");
    for (int i = 0; good && i < a_.Previous; ++i) good = Command("mnuOpenPrevious");
    return good;
  }

  bool ReadGeology() {
    for (const std::string& file : a_.Ged) {
      Outcome outcome;
      dialogs_.Complained = false;
      Guarded(velorix_, [&] { outcome = ReadGedFile(file, velorix_.Session.GeoRecords); });
      if (dialogs_.Complained) return false;
      if (outcome) continue;
      if (outcome.Text.empty()) outcome = Outcome::Refused(file, "no sample could be read.");
      Show(dialogs_, outcome);
      return false;
    }
    return true;
  }

  /// Standard error names the records without a sample; the rest goes on without them.
  bool AssignOrientations() {
    if (!a_.AssignGed) return true;
    views_.Status.clear();
    dialogs_.Complained = false;
    Session& session = velorix_.Session;
    Guarded(velorix_, [&] {
      const GedMatches matches = AssignGedToStore(session.Records, session.GeoRecords);
      if (!a_.Quiet) std::cerr << MatchLine(matches) << "\n";
      DisplayData(velorix_, true);
    });
    return !dialogs_.Complained;
  }

  /// Chooses the codes in the lists. One that the data lack is added there, so that it is in use
  /// all the same.
  void ChooseCodes() {
    const auto choose = [](const std::string& code, CodeList& list) {
      if (code.empty()) return false;
      if (!list.Has(code)) list.Add({code});
      for (std::size_t i = 0; i < list.Entries.size(); ++i)
        if (list.Entries[i].Text == code) list.ListIndex = static_cast<int>(i);
      return true;
    };
    const bool foli = choose(a_.FoliCode, velorix_.Lists.foliationsInUse);
    const bool line = choose(a_.LineCode, velorix_.Lists.lineationsInUse);
    if (!foli && !line) return;
    views_.Status.clear();
    Guarded(velorix_, [&] { DisplayData(velorix_, false); });
  }

  bool ChooseRecords() {
    const int count = velorix_.Session.RecordCount();
    for (const std::vector<int>* ids : {&a_.Select, &a_.Disregard})
      for (int id : *ids)
        if (id < 1 || id > count) {
          std::cerr << "There is no record " << id << ": the store has 1 to " << count << ".\n";
          return false;
        }
    if (!a_.Disregard.empty()) {
      SelectRecords(velorix_, a_.Disregard);
      Command("mnuSelection(2)");
    }
    SelectRecords(velorix_, a_.Select);
    return true;
  }

  bool CanCompare() const {
    if (a_.Compare.empty()) return true;
    const std::string complaint =
        TooManyCompared(PartRecords(velorix_.Session, *ParseGroupBy(a_.GroupBy)).size());
    if (!complaint.empty()) std::cerr << "--compare: " << complaint << "\n";
    return complaint.empty();
  }

  bool Count() {
    if (a_.Contour == 0) return true;
    const int smooth = a_.Smooth < 0 ? velorix_.Contour.Options.smoothing : a_.Smooth;
    return CountForBatch(velorix_, static_cast<ContourDisplay>(a_.Contour), smooth,
                         !a_.Quiet && IsTerminal());
  }

  bool WriteGrid() {
    if (a_.Grid.empty()) return true;
    const ExportForm form = {.Delimiter = ExportKinds[std::max(a_.Delimiter, 0)].Delimiter,
                             .Append = a_.Append};
    const Outcome outcome = ExportGrid(RecordGridTexts(velorix_.Session), Absolute(a_.Grid), form);
    if (outcome) return true;
    ReportRefusal(velorix_.Views, velorix_.Log, outcome.Text);
    std::cerr << views_.Status << "\n";
    return false;
  }

  /// Writes a picture of the page's types by `write`, unless `output` is empty.
  bool WritePageTo(const std::string& output,
                   const std::function<bool(const PictureAnswer&)>& write) {
    if (output.empty()) return true;
    const bool written = write({Absolute(output), UpperCase(ExtensionOf(output)) != "WMF"});
    if (!written) std::cerr << views_.Status << "\n";
    return written;
  }

  bool WritePage() {
    return WritePageTo(a_.Page,
                       [this](const PictureAnswer& to) { return ExportGraphics(velorix_, to); });
  }

  bool WriteFigure() {
    return WritePageTo(
        a_.Figure, [this](const PictureAnswer& to) { return ExportFigure(velorix_, to, style_); });
  }

  bool WriteGroupPanels() {
    return WritePageTo(a_.Panels, [this](const PictureAnswer& to) {
      bool written = false;
      return Guarded(velorix_,
                     [&] {
                       written = WritePanels(velorix_, *ParseGroupBy(a_.GroupBy), to,
                                             a_.Groups.empty(), !a_.Quiet && IsTerminal());
                     }) &&
             written;
    });
  }

  bool WriteContourImage() {
    if (a_.ContourImage.empty()) return true;
    constexpr double Scale = 3;  // pixels of a unit
    const Outcome outcome =
        WritePicture(a_.ContourImage, ContourPlane, Scale,
                     [this](Target& target) { DrawContourPicture(velorix_.Contour, target); });
    Show(dialogs_, outcome);
    return outcome.Done;
  }

  bool WriteUntilting() {
    if (a_.Untilt.empty()) return true;
    Outcome outcome;
    const bool written = Guarded(velorix_, [&] {
      const GroupBy by = *ParseGroupBy(a_.GroupBy);
      const Untilting untilting = UntiltForBatch(velorix_, by, !a_.Quiet && IsTerminal());
      const UntiltForm form = UntiltFormOf(a_.Untilt);
      const std::string heading =
          UntiltingHeading(velorix_.Session, PartRecords(velorix_.Session, by));
      if (form == UntiltForm::Json)
        Write(a_.Untilt, [&](std::ostream& out) { WriteUntiltJson(out, untilting, by, heading); });
      else
        outcome = WriteUntiltingFigure(velorix_.Host, a_.Untilt, form == UntiltForm::Metafile,
                                       untilting, heading);
    });
    Show(dialogs_, outcome);
    return written && outcome.Done;
  }

  static void Write(const std::string& output, const std::function<void(std::ostream&)>& write) {
    if (output == "-")
      write(std::cout);
    else if (!output.empty())
      SafeWrite(output, write);
  }

  void WriteRecords(std::ostream& out) const {
    Progress progress("Writing records", velorix_.Session.RecordCount(), !a_.Quiet && IsTerminal());
    WriteRecordsJson(out, velorix_.Session, [&progress](int done) { progress.Tell(done); });
  }

  void WriteGed() {
    if (a_.WriteGed.empty()) return;
    const Session& session = velorix_.Session;
    const std::string path = Absolute(a_.WriteGed);
    AskAboutLosses(dialogs_, "--write-ged", path,
                   FindGedLosses(session, path, session.GeoRecords, a_.Ged.size() > 1));
    (void)WriteGedFile(path, session.GeoRecords, FormerOf(session));
  }

  bool WriteOutputs() {
    const auto save = [&](const std::string& output, const char* command) {
      if (output.empty()) return true;
      dialogs_.Answers = {FileAnswer{Absolute(output), SaveFilterOf(output)}};
      return Command(command);
    };
    const bool written =
        save(a_.Save, "mnuSaveAs") && save(a_.SaveSelected, "mnuSaveSelectedAs") &&
        Guarded(velorix_, [&] {
          Write(a_.Records, [&](std::ostream& out) { WriteRecords(out); });
          Write(a_.Table, [&](std::ostream& out) { out << DataTableText(velorix_.Session); });
          Write(a_.Stats, [&](std::ostream& out) {
            WriteStatsJson(out, velorix_.GroupStats, velorix_.Session.Settings,
                           velorix_.Plots.Stereo.level, LevelHeading(velorix_.Plots.Stereo));
          });
          Write(a_.Groups, [&](std::ostream& out) {
            WriteGroups(out, velorix_, *ParseGroupBy(a_.GroupBy), *GroupsFormOf(a_.Groups),
                        !a_.Quiet && IsTerminal());
          });
          Write(a_.Compare, [&](std::ostream& out) {
            WriteComparisons(out, velorix_, *ParseGroupBy(a_.GroupBy), !a_.Quiet && IsTerminal());
          });
          Write(a_.GeoJson,
                [&](std::ostream& out) { WriteGeoJson(out, velorix_.Session.GeoRecords); });
          WriteGed();
          Write(a_.ContourJson,
                [&](std::ostream& out) { WriteContourJson(out, velorix_.Contour); });
        });
    return written && WriteUntilting() && WriteGrid() && WritePage() && WriteFigure() &&
           WriteGroupPanels() && WriteContourImage();
  }

  const Arguments& a_;
  FigureStyle style_;
  BatchDialogs dialogs_;
  BatchViews views_;
  Velorix velorix_;
};

}  // namespace

int RunBatch(const Arguments& arguments, const Host& host) { return Batch(arguments, host).Run(); }

}  // namespace velorix
