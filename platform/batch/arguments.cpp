#include "platform/batch/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>

#include "app/open_flow.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

using Names = std::map<std::string, int>;

const Names CoorSysOption = {{"spec", 0}, {"geo", 1}, {"paleo", 2}, {"tecto", 3}};
const Names BlockOption = {{"kre", 0}, {"kim", 1}};
const Names PlaneOption = {{"horizontal", 0}, {"vertical", 1}};
const Names AxisOption = {{"north", 0}, {"north-south", 1}, {"east", 2}, {"east-west", 3}};

/// Options whose work comes with a later version. They are known, so that a script fails with a
/// clear word and not halfway.
struct LaterOption {
  const char* Name;
  bool TakesValue;
  const char* Help;
};
// clang-format off
constexpr LaterOption LaterOptions[] = {
    {"--ged",           true,  "geological file to read; may be repeated"},
    {"--assign-ged",    false, "orientations from the geological files, by specimen name"},
    {"--grid",          true,  "the record grid as delimited text"},
    {"--delimiter",     true,  "comma, space, semicolon or tab, for --grid"},
    {"--append",        false, "append to an existing --grid file"},
    {"--table",         true,  "the data table as tab-separated text"},
    {"--page",          true,  "the graphics page, type by extension"},
    {"--contour",       true,  "counts the density of kmax, kint, kmin, foli or line"},
    {"--smooth",        true,  "smoothing of --contour"},
    {"--contour-json",  true,  "the counted grid as JSON"},
    {"--contour-image", true,  "the contour picture"},
    {"--geo-json",      true,  "the geological records as JSON"},
    {"--write-ged",     true,  "the geological records as a geological file"},
};
// clang-format on

EarlyEnd WrongUsage(const std::string& text) {
  return {2, text + "\nRun velorix-batch --help for the options.\n"};
}

/// The values of the options that come later; each is given when it is not empty.
struct LaterValues {
  std::vector<std::vector<std::string>> Values =
      std::vector<std::vector<std::string>>(std::size(LaterOptions));
  std::vector<char> Flags = std::vector<char>(std::size(LaterOptions), 0);
};

void AddLaterOptions(CLI::App& app, LaterValues& later, std::vector<CLI::Option*>& options) {
  for (std::size_t i = 0; i < std::size(LaterOptions); ++i) {
    const LaterOption& row = LaterOptions[i];
    const std::string help = std::string(row.Help) + " (not available yet)";
    options.push_back(row.TakesValue
                          ? app.add_option(row.Name, later.Values[i], help)->allow_extra_args(false)
                          : app.add_flag(row.Name, later.Flags[i], help));
  }
}

void AddOptions(CLI::App& app, Arguments& a, Names& filters) {
  int index = 0;
  for (const OpenFilter& filter : OpenFilters()) filters[filter.Name] = ++index;
  const auto choice = [&app](const char* name, int& value, const Names& names, const char* help) {
    app.add_option(name, value, help)
        ->transform(CLI::CheckedTransformer(names).description(""))
        ->type_name("NAME");
  };
  app.add_option("FILE", a.Files, "files to read, all by one reader, in this order")->type_name("");
  choice("--format", a.Filter, filters,
         "reader: ams, ran, are, asc, si2b, spin; else by extension");
  app.add_flag("--reload", a.Reload, "reload after opening");
  app.add_option("--next", a.Next, "after opening, open the next file N times")
      ->check(CLI::Range(0, 1000000).description(""))
      ->type_name("N");
  app.add_option("--previous", a.Previous, "after opening, open the previous file N times")
      ->check(CLI::Range(0, 1000000).description(""))
      ->type_name("N");
  app.add_option("--settings", a.SettingsFile, "settings file to use; mended when missing or bad")
      ->type_name("FILE");
  choice("--coor", a.CoorSys, CoorSysOption, "coordinates: spec, geo (default), paleo, tecto");
  choice("--block", a.Block, BlockOption, "tensor: kre (in-phase, default), kim (out-of-phase)");
  choice("--plane", a.Plane, PlaneOption, "the foliation becomes: horizontal (default), vertical");
  choice("--axis", a.Axis, AxisOption,
         "the lineation goes to: north (default), north-south, east, east-west");
  app.add_option("--foli", a.FoliCode, "foliation code; default: the first in the data")
      ->type_name("CODE");
  app.add_option("--line", a.LineCode, "lineation code; default: the first in the data")
      ->type_name("CODE");
  for (auto [name, ids, help] : {std::tuple{"--select", &a.Select, "select records by number"},
                                 std::tuple{"--disregard", &a.Disregard, "disregard records"}})
    app.add_option(name, *ids, help)->delimiter(',')->allow_extra_args(false)->type_name("ID,...");
  for (auto [name, file, help] :
       {std::tuple{"--records", &a.Records, "every record as JSON, - for standard output"},
        std::tuple{"--stats", &a.Stats, "the group statistics as JSON, - for standard output"},
        std::tuple{"--save", &a.Save, "save all records (.ams)"},
        std::tuple{"--save-selected", &a.SaveSelected, "save the selected records (.ams)"}})
    app.add_option(name, *file, help)->type_name("FILE");
  app.add_flag("--force", a.Force, "overwrite existing outputs");
  app.add_flag("--quiet", a.Quiet, "no progress and no summary");
}

/// What is wrong with arguments that parsed, or nothing.
std::string Complaint(Arguments& a) {
  if (a.Files.empty()) return "No FILE is given.";
  if (a.Filter == 0) a.Filter = FilterOfExtension(ExtensionOf(a.Files.front()));
  if (a.Filter == 0)
    return a.Files.front() + ": the extension tells no format; give one with --format.";
  for (const std::string* file : {&a.Save, &a.SaveSelected}) {
    const std::string extension = UpperCase(ExtensionOf(*file));
    if (extension == "RAN") return *file + ": writing RAN files is not available yet.";
    if (!file->empty() && extension != "AMS") return *file + ": records are saved as .ams files.";
  }
  const std::vector<std::string> outputs = a.Outputs();
  for (const std::string& output : outputs) {
    if (std::count(outputs.begin(), outputs.end(), output) > 1)
      return output + " is named for two outputs.";
    for (const std::string& input : a.Files)
      if (PathOf(output).lexically_normal() == PathOf(input).lexically_normal())
        return output + " is both read and written.";
  }
  return {};
}

}  // namespace

std::vector<std::string> Arguments::Outputs() const {
  std::vector<std::string> outputs;
  for (const std::string* output : {&Records, &Stats, &Save, &SaveSelected})
    if (!output->empty()) outputs.push_back(*output);
  return outputs;
}

std::variant<Arguments, EarlyEnd> ParseArguments(int argc, const char* const* argv) {
  Arguments a;
  LaterValues later;
  Names filters;
  std::vector<CLI::Option*> laterOptions;
  CLI::App app("Velorix without a window: the same routines on the same files, for scripts.",
               "velorix-batch");
  app.set_version_flag("--version", std::string("velorix-batch ") + Version);
  AddOptions(app, a, filters);
  AddLaterOptions(app, later, laterOptions);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return EarlyEnd{0, app.help()};
  } catch (const CLI::CallForVersion&) {
    return EarlyEnd{0, std::string("velorix-batch ") + Version + "\n"};
  } catch (const CLI::ParseError& error) {
    return WrongUsage(error.what());
  }
  for (const CLI::Option* option : laterOptions)
    if (option->count() > 0) return EarlyEnd{2, option->get_name() + " is not available yet.\n"};
  const std::string complaint = Complaint(a);
  if (!complaint.empty()) return WrongUsage(complaint);
  return a;
}

}  // namespace velorix
