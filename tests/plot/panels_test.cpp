#include "plot/net/panels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "plot/axes/axes.h"
#include "plot/drawing/fitting_text.h"
#include "tests/plot/calls.h"

namespace velorix {
namespace {

constexpr PlaneSize Page = {900, 800};

/// Kmax north and level, Kint east and level, Kmin vertical, in geographic coordinates: the first
/// two lie on the primitive circle.
SpecimenRecord Upright() {
  SpecimenRecord r;
  r.Active = true;
  r.CoorLevel = Geographic;
  r.Dec[2] = r.Inc[3] = 90.0;
  r.Dec[1] = r.Dec[3] = r.Inc[1] = r.Inc[2] = 0.0;
  return r;
}

/// A study of `groups` groups of two such records each, and their page.
struct Study {
  velorix::Session Session;
  std::vector<std::vector<int>> Records;
  GroupStats Stats;
  std::vector<Panel> Panels;

  explicit Study(std::size_t groups) : Records(groups) {
    Session.CoorSys = Geographic;
    for (std::vector<int>& records : Records)
      for (int i = 0; i < 2; ++i) {
        Session.Records.Add(Upright());
        records.push_back(Session.Records.Count());
      }
    Stats.GroupN = 5;
    Stats.Reached = GroupStats::All;
    Stats.Errors = 3;
    for (int k = 1; k <= 3; ++k) {
      Stats.MeanVec(k, k) = 1;
      Stats.MeanE1[k] = 30, Stats.MeanE2[k] = 10;
    }
    Stats.MeanDec[2] = Stats.MeanInc[3] = 90;
    for (const std::vector<int>& records : Records)
      Panels.push_back({"site " + std::to_string(Panels.size() + 1), records, &Stats});
  }
  std::vector<DrawCall> Draw(double s = 1, const std::vector<std::string>& captions = {}) const {
    return Recorded([&](Target& target) {
      DrawPanels(Session, Panels, ErrorLevel::StandardError, captions, target, Page, s);
    });
  }
};

/// The primitive circles, from the first panel on.
std::vector<LogicalBox> Rims(const std::vector<DrawCall>& calls) {
  std::vector<LogicalBox> rims;
  for (const EllipseCall& call : CallsOf<EllipseCall>(calls))
    if (!call.brush) rims.push_back(call.box);
  return rims;
}

std::vector<TextCall> TextsWith(const std::vector<DrawCall>& calls, const std::string& start) {
  std::vector<TextCall> texts = CallsOf<TextCall>(calls);
  std::erase_if(texts, [&](const TextCall& call) { return !call.text.starts_with(start); });
  return texts;
}

TEST(Panels, EveryGroupHasANetOfTheSameSizeInItsOwnRoomOnThePage) {
  for (const std::size_t groups : {0u, 1u, 2u, 7u, 40u, 200u, 600u})
    for (const double s : {1.0, 2.0, 3.2}) {
      const auto calls = Study(groups).Draw(s, {"a", "b"});
      for (const DrawCall& call : calls)
        for (const LogicalPoint& p : PointsOf(call))
          ASSERT_TRUE(p.x >= 0 && p.y >= 0 && p.x <= Page.width * s && p.y <= Page.height * s)
              << groups << " " << call;
      const auto rims = Rims(calls);
      const auto names = TextsWith(calls, "site "), counts = TextsWith(calls, "N = 2");
      ASSERT_EQ(rims.size(), groups);
      ASSERT_EQ(names.size(), groups);
      ASSERT_EQ(counts.size(), groups);
      for (std::size_t i = 0; i < groups; ++i) {
        EXPECT_EQ(names[i].text, "site " + std::to_string(i + 1));
        EXPECT_NEAR(names[i].point.x, (rims[i].left + rims[i].right) / 2.0, 1);
        EXPECT_LT(names[i].point.y, rims[i].top);
        EXPECT_NEAR(counts[i].point.x, rims[i].right, 0.1 * (rims[i].right - rims[i].left));
        EXPECT_NEAR(rims[i].right - rims[i].left, rims[0].right - rims[0].left, 1);
        if (i == 0) continue;
        EXPECT_TRUE(rims[i].left > rims[i - 1].right || rims[i].top > rims[i - 1].bottom);
      }
    }
  // Forty nets, 8 by 5, are as wide as eight columns allow.
  const LogicalBox forty = Rims(Study(40).Draw()).front();
  EXPECT_GT(forty.right - forty.left, 900 * 0.75 / 8);
}

TEST(Panels, ShowsTheRecordsInViewOfEachGroupAndWhatItsStatisticsReached) {
  const auto filled = [](const std::vector<DrawCall>& calls, Colour colour) {
    return std::count_if(calls.begin(), calls.end(), [&](const DrawCall& call) {
      const auto* polygon = std::get_if<PolygonCall>(&call);
      return polygon && polygon->brush == colour;
    });
  };
  Study study(3);
  study.Session.Records[1].Selected = true;
  study.Session.Records[2].Active = false;
  study.Session.Records[5].Dec[1] = NAN;
  study.Panels[1].Records = {};
  GroupStats none;
  study.Panels[1].Stats = study.Panels[2].Stats = &none;
  study.Panels[1].Name = "";
  const auto calls = study.Draw();
  EXPECT_EQ(WordsOf(calls).substr(0, 57),
            "N|N|N|N = 1|N = 0|N = 2|site 1|(no name)|site 3|Max|Int|M");
  EXPECT_EQ(filled(calls, SelectedColour), 2);  // Kmax and Kint; Kmin is a circle
  EXPECT_EQ(filled(calls, Red), 1 + 1);         // one record of the third group, and the legend
  EXPECT_EQ(filled(calls, White), 2);           // the mean of the first group
}

TEST(Panels, NamesFitTheirRoomOnOneLine) {
  const struct {
    const char *Name, *Fitting;
    double Room;
  } cases[] = {
      {"", "", 5},
      {"AB1-1", "AB1-1", 5},
      {"a\tb\nc\x7f\xC2\x85", "a b c  ", 9},
      {"Monte Rosa, quarry of the north 07", "Mont... 07", 5},
      {"\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", "\xC3\xA4\xC3\xA4...\xC3\xA4", 3.5},
      {"abcdef", "a...", 0.1},  // something stays
      {"\x80\xBF", "\x80\xBF", 5},
  };
  for (const auto& [name, fitting, room] : cases) EXPECT_EQ(FittingText(name, room), fitting);
}

}  // namespace
}  // namespace velorix
