#include "platform/batch/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <memory>

#include "app/files/export_grid.h"
#include "app/files/file_kinds.h"
#include "app/state/program.h"
#include "platform/batch/contour_output.h"
#include "platform/batch/groups_output.h"
#include "platform/batch/untilt_output.h"
#include "platform/painting/picture_file.h"
#include "stats/study/grouping.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

/// A choice among the words of the option's value, given as the chosen one's position.
struct Choice {
  int Arguments::*Position;
  int First;  // position of the first word
};

/// A whole number within bounds.
struct Bounded {
  std::int64_t Arguments::*Number;
  std::int64_t Least, Most;
};

/// A word of `ParseGroupBy`.
struct Parting {
  std::string Arguments::*Word;
};

/// Where an option's value goes.
using Place = std::variant<Choice, Bounded, Parting, bool Arguments::*, int Arguments::*,
                           std::string Arguments::*, std::vector<int> Arguments::*,
                           std::vector<std::string> Arguments::*>;

struct OptionRow {
  const char* Name;
  std::string Value;  // what the help calls it; words to choose from stand between bars; "": a flag
  std::string Help;
  velorix::Place Place;
  bool Repeats = false;
};

/// The words of a table's rows, between bars.
std::string Words(const auto& rows) {
  std::string words;
  for (const auto& row : rows) words += std::string(words.empty() ? "" : "|") + row.Word;
  return words;
}

/// The words of the coordinate systems, between bars.
std::string SystemWords() {
  std::string words;
  for (const CoordinateSystem system : SystemsInView)
    words += std::string(words.empty() ? "" : "|") + NamesOf(system).Option;
  return words;
}

/// The extensions of the files in which records can be saved: ".ams or .ran".
std::string SavedExtensions() {
  std::string extensions;
  for (const FileKind& kind : FileKinds())
    if (kind.Write)
      extensions += (extensions.empty() ? "." : " or .") + std::string(kind.Extension);
  return extensions;
}

// clang-format off
const OptionRow Options[] = {
    {"--format",        Words(FileKinds()),          "reader of all files; default: by the extension", Choice{&Arguments::Filter, 1}},
    {"--reload",        "",                          "after opening, reload",                           &Arguments::Reload},
    {"--next",          "N",                         "after opening, open the next file N times",       &Arguments::Next},
    {"--previous",      "N",                         "after opening, open the previous file N times",   &Arguments::Previous},
    {"--settings",      "FILE",                      "settings to use; mended when missing or bad",     &Arguments::SettingsFile},
    {"--ged",           "FILE",                      "geological file to read; may be repeated",        &Arguments::Ged, true},
    {"--assign-ged",    "",                          "orientations from the geological files",          &Arguments::AssignGed},
    {"--coor",          SystemWords(),               "coordinate system; default geo",                  Choice{&Arguments::CoorSys, 0}},
    {"--block",         "kre|kim",                   "in-phase or out-of-phase tensor; default kre",    Choice{&Arguments::Block, 0}},
    {"--plane",         "horizontal|vertical",       "what the foliation becomes; default horizontal",  Choice{&Arguments::Plane, 0}},
    {"--axis",          "north|north-south|east|east-west", "where the lineation goes; default north",  Choice{&Arguments::Axis, 0}},
    {"--foli",          "CODE",                      "foliation; default: the first in the data",       &Arguments::FoliCode},
    {"--line",          "CODE",                      "lineation; default: the first in the data",       &Arguments::LineCode},
    {"--level",         Words(ErrorLevels),          "errors shown: standard, or 95 % angles; default se", Choice{&Arguments::Level, 0}},
    {"--bootstrap",     Words(BootMethods),          "how the replicates come about; default parametric", Choice{&Arguments::Bootstrap, 0}},
    {"--replicates",    "N",                         "of the bootstrap, 100 to 10000; default 500",     Bounded{&Arguments::Replicates, LeastReplicates, MostReplicates}},
    {"--seed",          "N",                         "of the bootstrap's numbers; default: those of the table", Bounded{&Arguments::Seed, 0, std::numeric_limits<std::uint32_t>::max()}},
    {"--select",        "ID[,ID...]",                "records to select, by number",                    &Arguments::Select, true},
    {"--disregard",     "ID[,ID...]",                "records to disregard, by number",                 &Arguments::Disregard, true},
    {"--records",       "FILE",                      "every record as JSON; - is standard output",      &Arguments::Records},
    {"--grid",          "FILE",                      "the record grid as delimited text",               &Arguments::Grid},
    {"--delimiter",     Words(ExportKinds),          "for --grid; default comma",                       Choice{&Arguments::Delimiter, 0}},
    {"--append",        "",                          "append to an existing --grid file",               &Arguments::Append},
    {"--table",         "FILE",                      "the data table as tab-separated text",            &Arguments::Table},
    {"--stats",         "FILE",                      "the group statistics as JSON; - is standard output", &Arguments::Stats},
    {"--group-by",      GroupByWords,                "parts the records in view into groups",           Parting{&Arguments::GroupBy}},
    {"--groups",        "FILE",                      "statistics of each group and of all: .json or .csv; - is standard output", &Arguments::Groups},
    {"--compare",       "FILE",                      "every pair of groups as JSON; - is standard output", &Arguments::Compare},
    {"--untilt",        "FILE",                      "the groups untilted step by step: .json, or the figure by its extension; - is standard output", &Arguments::Untilt},
    {"--panels",        "FILE",                      "a small net a group on one page; its type by the extension", &Arguments::Panels},
    {"--figure",        "FILE",                      "the page in the style of --style; its type by the extension", &Arguments::Figure},
    {"--style",         "FILE",                      "style file of --figure",                          &Arguments::Style},
    {"--page",          "FILE",                      "the graphics page; its type by the extension",    &Arguments::Page},
    {"--contour",       Words(ContourDisplays),                "counts the density",                              Choice{&Arguments::Contour, 1}},
    {"--smooth",        "N",                         "smoothing of --contour; default 20",              &Arguments::Smooth},
    {"--contour-json",  "FILE",                      "the counted grid as JSON; - is standard output",  &Arguments::ContourJson},
    {"--contour-image", "FILE",                      "the contour picture, png",                        &Arguments::ContourImage},
    {"--save",          "FILE",                      "all records, as " + SavedExtensions(),                    &Arguments::Save},
    {"--save-selected", "FILE",                      "the selected records, as " + SavedExtensions(),           &Arguments::SaveSelected},
    {"--geo-json",      "FILE",                      "the geological records as JSON",                  &Arguments::GeoJson},
    {"--write-ged",     "FILE",                      "the geological records as a geological file",     &Arguments::WriteGed},
    {"--force",         "",                          "overwrite existing outputs",                      &Arguments::Force},
    {"--no-backup",     "",                          "keep no former file as NAME~",                    &Arguments::NoBackup},
    {"--quiet",         "",                          "no progress and no summary",                      &Arguments::Quiet},
};
// clang-format on

/// Options that go with another one alone.
struct Need {
  std::vector<std::string> Options;
  std::string Other;
};
const Need Needs[] = {
    {{"--smooth", "--contour-json", "--contour-image"}, "--contour"},
    {{"--delimiter", "--append"}, "--grid"},
    {{"--assign-ged", "--geo-json", "--write-ged"}, "--ged"},
    {{"--groups", "--compare", "--panels"}, "--group-by"},
    {{"--untilt"}, "--group-by"},
    {{"--style"}, "--figure"},
};

/// "--a, --b and --c need --d."
std::string TextOf(const Need& need) {
  std::string text;
  for (std::size_t i = 0; i < need.Options.size(); ++i)
    text += (i == 0 ? "" : i + 1 < need.Options.size() ? ", " : " and ") + need.Options[i];
  return text + (need.Options.size() == 1 ? " needs " : " need ") + need.Other + ".";
}

/// The need of the first option that was given without the one it needs; empty when there is none.
std::string UnmetNeed(const CLI::App& app) {
  for (const OptionRow& row : Options)
    for (const Need& need : Needs)
      if (app.count(row.Name) > 0 && app.count(need.Other) == 0 &&
          std::find(need.Options.begin(), need.Options.end(), row.Name) != need.Options.end())
        return TextOf(need);
  return {};
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (char c : text)
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

/// A number in decimal digits, from 0 to `most`; -1 for any other text.
std::int64_t DigitsUpTo(std::int64_t most, const std::string& text) {
  std::int64_t number = -1;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && rest == end && number <= most ? std::max<std::int64_t>(number, -1)
                                                               : -1;
}

/// A count up to the limit of the store; -1 for any other text.
int CountOf(const std::string& text) { return static_cast<int>(DigitsUpTo(32767, text)); }

/// The position of a word, from 0; -1 when it is none of those between bars.
int PositionOf(const std::string& text, const std::string& between) {
  const auto words = Split(between, '|');
  const auto word = std::find(words.begin(), words.end(), text);
  return word == words.end() ? -1 : static_cast<int>(word - words.begin());
}

/// What is wrong with the text of an option, or nothing. The parser's own checks of words and
/// ranges
/// (`IsMember`, `Range`) have texts that can't be changed, and take numbers with a fraction.
struct CheckValue {
  const OptionRow& Row;
  const std::string& Text;

  static std::string CheckCount(const std::string& text) {
    return CountOf(text) >= 0 ? "" : "'" + text + "' is no count from 0 to 32767.";
  }
  std::string operator()(int Arguments::*) const { return CheckCount(Text); }
  std::string operator()(std::vector<int> Arguments::*) const {
    std::string wrong;
    for (const std::string& id : Split(Text, ','))
      if (wrong.empty()) wrong = CheckCount(id);
    return wrong;
  }
  std::string operator()(const Choice&) const {
    if (PositionOf(Text, Row.Value) >= 0) return {};
    return "'" + Text + "' is none of " + Row.Value + ".";
  }
  std::string operator()(const Bounded& bounded) const {
    if (DigitsUpTo(bounded.Most, Text) >= bounded.Least) return {};
    return "'" + Text + "' is no number from " + std::to_string(bounded.Least) + " to " +
           std::to_string(bounded.Most) + ".";
  }
  std::string operator()(const Parting&) const {
    if (ParseGroupBy(Text)) return {};
    return "'" + Text + "' is none of " + Row.Value + ".";
  }
  template <class Other>
  std::string operator()(Other Arguments::*) const {
    return {};
  }
};

/// Puts the text of an option, which is checked, where it belongs.
struct TakeValue {
  Arguments& To;
  const OptionRow& Row;
  const std::string& Text;

  void operator()(bool Arguments::*member) const { To.*member = true; }
  void operator()(std::string Arguments::*member) const { To.*member = Text; }
  void operator()(std::vector<std::string> Arguments::*member) const {
    (To.*member).push_back(Text);
  }
  void operator()(int Arguments::*member) const { To.*member = CountOf(Text); }
  void operator()(std::vector<int> Arguments::*member) const {
    for (const std::string& id : Split(Text, ',')) (To.*member).push_back(CountOf(id));
  }
  void operator()(const Bounded& bounded) const {
    To.*bounded.Number = DigitsUpTo(bounded.Most, Text);
  }
  void operator()(const Parting& parting) const { To.*parting.Word = Text; }
  void operator()(const Choice& choice) const {
    To.*choice.Position = choice.First + PositionOf(Text, Row.Value);
  }
};

/// Help without the notes of what an option needs.
struct HelpFormat : CLI::Formatter {
  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string text = CLI::Formatter::make_option_opts(option);
    return text.substr(0, text.find(" Needs:"));
  }
};

/// Lets the parser know an option.
void AddOption(CLI::App& app, Arguments& a, const OptionRow& row) {
  const auto take = [&a, &row](const std::string& text) {
    std::visit(TakeValue{a, row, text}, row.Place);
  };
  if (row.Value.empty()) {
    app.add_flag_callback(
        row.Name, [take] { take(""); }, row.Help);
    return;
  }
  const auto takeAll = [take](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) take(text);
  };
  CLI::Option* const option =
      app.add_option_function<std::vector<std::string>>(row.Name, takeAll, row.Help);
  option->type_name(row.Value)->allow_extra_args(false)->expected(1);
  const auto complaint = [&row](const std::string& text) {
    return std::visit(CheckValue{row, text}, row.Place);
  };
  option->check(CLI::Validator(complaint, ""));
  option->multi_option_policy(row.Repeats ? CLI::MultiOptionPolicy::TakeAll
                                          : CLI::MultiOptionPolicy::Throw);
}

/// Whether two paths lead to one file, links and other spellings included.
bool SameFile(const std::string& a, const std::string& b) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::equivalent(PathOf(a), PathOf(b), error)) return true;
  const auto place = [&error](const std::string& path) {
    const fs::path full = fs::absolute(PathOf(path), error);
    const fs::path found = fs::weakly_canonical(full, error);
    return (error ? full : found).lexically_normal();
  };
  return a == b || place(a) == place(b);
}

/// What is wrong with the files named, or nothing. Settings are read, and written when bad: so they
/// must be no file of another use.
std::string FilesComplaint(const Arguments& a) {
  const std::vector<std::string> outputs = a.Outputs();
  for (auto output = outputs.begin(); output != outputs.end(); ++output) {
    for (auto other = outputs.begin(); other != output; ++other)
      if (SameFile(*other, *output)) return *output + " is named for two outputs.";
    for (const std::vector<std::string>* inputs : {&a.Files, &a.Ged})
      for (const std::string& input : *inputs)
        if (SameFile(input, *output)) return *output + " is both read and written.";
    if (!a.Style.empty() && SameFile(a.Style, *output))
      return *output + " is both read and written.";
    if (!a.SettingsFile.empty() && SameFile(a.SettingsFile, *output))
      return *output + " is the settings file.";
  }
  for (const std::string& input : a.Files)
    if (!a.SettingsFile.empty() && SameFile(a.SettingsFile, input))
      return input + " is the settings file.";
  return {};
}

/// What is wrong with arguments that parsed, or nothing. `missing` is what the parser says of an
/// option that another one needs. Chooses the reader by the extension.
std::string Complaint(Arguments& a, const std::string& missing) {
  if (a.Files.empty()) return "No FILE is given.";
  if (a.Filter == 0) a.Filter = FilterOfExtension(ExtensionOf(a.Files.front()));
  if (a.Filter == 0)
    return a.Files.front() + ": no format has this extension; give one with --format.";
  for (const std::string* file : {&a.Save, &a.SaveSelected}) {
    if (!file->empty() && SaveFilterOf(*file) == 0)
      return *file + ": records are saved as " + SavedExtensions() + " files.";
  }
  if (!missing.empty()) return missing;
  if (!a.Untilt.empty() && UntiltFormOf(a.Untilt) == UntiltForm::Picture) {
    const std::string complaint = PictureComplaint(a.Untilt);
    if (!complaint.empty())
      return a.Untilt + ": " + complaint + " An untilting can be a json or a wmf too.";
  }
  if (!a.Groups.empty() && !GroupsFormOf(a.Groups))
    return a.Groups + ": groups are written as .json or .csv.";
  if (a.WriteGed == "-") return "--write-ged needs the name of a file.";
  if (a.Grid == "-") return "--grid needs the name of a file.";
  for (const std::string* page : {&a.Page, &a.Panels, &a.Figure}) {
    if (page->empty() || UpperCase(ExtensionOf(*page)) == "WMF") continue;
    const std::string complaint = PictureComplaint(*page);
    if (!complaint.empty()) return *page + ": " + complaint + " A page can be a wmf too.";
  }
  if (!a.ContourImage.empty()) {
    const std::string complaint = PictureComplaint(a.ContourImage);
    if (!complaint.empty()) return a.ContourImage + ": " + complaint;
  }
  return FilesComplaint(a);
}

EarlyEnd WrongUsage(const std::string& text) {
  return {2, text + "\nRun velorix-batch --help for the options.\n"};
}

}  // namespace

std::vector<std::string> Arguments::Outputs() const {
  std::vector<std::string> outputs;
  for (const std::string* output :
       {&Save, &SaveSelected, &Records, &Grid, &Table, &Stats, &Groups, &Compare, &Untilt, &Page,
        &Figure, &Panels, &ContourJson, &ContourImage, &GeoJson, &WriteGed})
    if (!output->empty()) outputs.push_back(*output);
  return outputs;
}

std::variant<Arguments, EarlyEnd> ParseArguments(int argc, const char* const* argv) {
  Arguments a;
  CLI::App app("Velorix without a window: the same routines on the same files, for scripts.",
               "velorix-batch");
  app.allow_windows_style_options(false);
  app.set_version_flag("--version", std::string("velorix-batch ") + Version);
  app.add_option("FILE", a.Files, "files to read, all by one reader, in this order")->type_name("");
  for (const OptionRow& row : Options) AddOption(app, a, row);
  for (const Need& need : Needs)
    for (const std::string& option : need.Options) app.get_option(option)->needs(need.Other);
  app.formatter(std::make_shared<HelpFormat>());
  std::string missing;
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return EarlyEnd{0, app.help()};
  } catch (const CLI::CallForVersion&) {
    return EarlyEnd{0, std::string("velorix-batch ") + Version + "\n"};
  } catch (const CLI::RequiresError&) {  // `a` is whole
    if (app.remaining_size() > 0) return WrongUsage(CLI::ExtrasError(app.remaining()).what());
    missing = UnmetNeed(app);
  } catch (const CLI::ParseError& error) {
    return WrongUsage(error.what());
  }
  const std::string complaint = Complaint(a, missing);
  if (!complaint.empty()) return WrongUsage(complaint);
  return a;
}

}  // namespace velorix
