#include "datafiles/formats/asc_file.h"

#include "base/rounding.h"
#include "datafiles/bytes/text_file.h"
#include "text/code_page.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

constexpr char FormFeed = '\f';
constexpr std::size_t NameWidth = 15;

/// A code character; "0" stands for none.
std::string CodeOf(char character) {
  return character == '0' ? std::string() : UpperCase(FromCodePage({&character, 1}));
}

/// A report that is being read. The lines are named as on the page on the format.
class AscReport {
 public:
  void ReadSpecimen(TextLines& lines, SpecimenRecord& r) {
    ReadName(lines, r);
    lines.Skip(2);
    SplitBlanks(lines.Next(), tokens_);
    TakeLineA(r);
    lines.Skip(1);
    SplitBlanks(lines.Next(), tokens_);
    TakeLineB(r);
    lines.Skip(4);
    SplitBlanks(lines.Next(), tokens_);
    TakeLineC(r);
    FindSystems(r);
    const bool isMean = FindCaption(lines) == "Mean";
    lines.Skip(3);
    SplitBlanks(lines.Next(), tokens_);
    TakeLineD(isMean, r);
    lines.Skip(6);
    SplitBlanks(lines.Next(), tokens_);
    for (int i = 1; i <= 3; ++i) {
      r.K[i] = NumberAt(i);
      r.E2[i] = NumberAt(i + 3);
    }
    lines.Skip(1);
    SplitBlanks(lines.Next(), tokens_);
    TakeLineF(r);
    lines.Skip(11);
    SplitBlanks(lines.Next(), tokens_);
    for (int i = 1; i <= 3; ++i) r.Tensor[i] = NumberAt(i + 5);
    SplitBlanks(lines.Next(), tokens_);
    for (int i = 1; i <= 3; ++i) r.Tensor[i + 3] = NumberAt(i + 5);
    r.Active = true;
    while (!lines.AtEnd()) {
      last_ = lines.Next();
      if (last_.starts_with(FormFeed)) break;
    }
  }

 private:
  double NumberAt(int i) const { return NumberOf(tokens_.Token(i)); }
  float SingleAt(int i) const { return SingleOf(tokens_.Token(i)); }

  /// The name may stand on the line of the form feed, which is the last one of the specimen before.
  void ReadName(TextLines& lines, SpecimenRecord& r) {
    if (last_.size() < 2) last_ = lines.Next();
    r.Name = FromCodePage(StripBlanks(CleanName(last_.substr(0, NameWidth))));
  }

  void TakeLineA(SpecimenRecord& r) const {
    r.OrientAz = SingleAt(2);
    for (int j = 1; j <= 4; ++j) r.OP[j] = ToShort(NumberAt(j + 4));
    r.RunAux4 = BytesOfSingle(SingleAt(11));
  }

  void TakeLineB(SpecimenRecord& r) const {
    r.OrientInc = SingleAt(2);
    if (tokens_.Token(6) == "YES") r.RunAux2 = -1;
    r.RunAux3 = BytesOfSingle(SingleAt(8));
    r.RunAux1 = BytesOfSingle(SingleAt(11));
  }

  void TakeLineC(SpecimenRecord& r) const {
    for (int slot = 1; slot <= 2; ++slot) {
      const int first = 3 * slot - 2;
      const std::string_view codes = tokens_.Token(first);
      if (!codes.empty()) {
        r.FoliName[slot] = CodeOf(codes.front());
        r.LineName[slot] = CodeOf(codes.back());
      }
      TakePair(first + 1, r.FoliAz[slot], r.FoliDip[slot]);
      TakePair(first + 2, r.LineTrend[slot], r.LinePlunge[slot]);
    }
  }

  /// The two numbers of "120/45"; one that is missing is 0.
  void TakePair(int i, float& first, float& second) const {
    const Tokens parts = SplitAtChar(tokens_.Token(i), '/');
    first = SingleOf(parts.Token(1));
    second = SingleOf(parts.Token(2));
  }

  static void FindSystems(SpecimenRecord& r) {
    r.HasCoor[1] = true;
    r.HasCoor[2] = r.OrientAz != 0 || r.OrientInc != 0;
    for (int slot = 1; slot <= 2; ++slot)
      if (!r.FoliName[slot].empty() || !r.LineName[slot].empty()) SetUpperSystems(r.HasCoor, true);
  }

  /// The first word, "Mean" or "Field", of the next line that begins with one of them, in this
  /// case of letters only.
  std::string_view FindCaption(TextLines& lines) {
    std::string_view word;
    while (word != "Mean" && word != "Field") {
      SplitBlanks(lines.Next(), tokens_);
      word = tokens_.Token(1);
    }
    return word;
  }

  void TakeLineD(bool isMean, SpecimenRecord& r) const {
    int km = 1, deviation = 3;
    if (isMean) {
      r.Field = 425;  // Kept for agreement with published results: whatever it says
      r.FreqName = "F1";
      r.FreqIndex = 1;
    } else {
      r.Field = SingleAt(1);
      const std::string_view frequency = tokens_.Token(2);
      const bool isNamed = frequency.starts_with('F');
      if (isNamed) {
        r.FreqName = FromCodePage(frequency);
        r.FreqIndex = DigitsOfText(frequency);
      }
      km = isNamed ? 3 : 2;
      deviation = km + 1;
    }
    r.Km = NumberAt(km);
    r.KmSD = NumberAt(deviation);
    for (int i = 0; i <= 2; ++i) r.FTest[i] = NumberAt(deviation + 1 + i);
  }

  /// E comes from this line where it has it, else from line E in another order.
  void TakeLineF(SpecimenRecord& r) const {
    for (int i = 1; i <= 3; ++i) r.KSD[i] = NumberAt(i + 1);
    constexpr int Other[] = {3, 1, 2};
    for (int i = 1; i <= 3; ++i)
      r.E[i] = tokens_.Count() >= i + 4 ? Number(NumberAt(i + 4)) : r.E2[Other[i - 1]];
  }

  std::string_view last_;  // line read last of the specimen before
  Tokens tokens_;
};

}  // namespace

Outcome ReadAscText(std::string_view text, const std::string& path, RecordArray& records) {
  AscReport report;
  return ReadSpecimens(text, path, records, [&](TextLines& lines, SpecimenRecord& record) {
    report.ReadSpecimen(lines, record);
  });
}

Outcome ReadAscFile(const std::string& path, RecordArray& records) {
  return ReadAscText(TextOfFile(path), path, records);
}

}  // namespace velorix
