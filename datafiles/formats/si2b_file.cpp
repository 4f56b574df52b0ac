#include "datafiles/formats/si2b_file.h"

#include "base/narrowing.h"
#include "datafiles/bytes/text_file.h"
#include "datafiles/formats/principal_tensor.h"
#include "text/code_page.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace velorix {
namespace {

/// What a line gives: a principal susceptibility in 10^-6 and its direction.
struct Principal {
  double Value = 0;
  Direction Axis;
};

/// All of a line's tokens are asked for, so that a line without them is an error.
Principal TakePrincipal(const Tokens& tokens) {
  const auto number = [&tokens](int i) { return NumberOf(tokens.Token(i)); };
  return {number(3), {number(4), number(5)}};
}

/// The mean of three values, computed in 32 bits.
float MeanOf(double a, double b, double c) {
  const float mean = (ToSingle(a) + ToSingle(b) + ToSingle(c)) / 3;
  Finite(mean);
  if (mean == 0) FailDivision();
  return mean;
}

void TakeSpecimen(TextLines& lines, Tokens& tokens, const Settings& settings, SpecimenRecord& r) {
  Array1<Principal, 3> p;
  for (int i = 1; i <= 3; ++i) {
    SplitBlanks(lines.Next(), tokens);
    p[i] = TakePrincipal(tokens);
    if (i == 1) r.Name = FromCodePage(tokens.Token(1));
  }
  const float mean = MeanOf(p[1].Value, p[2].Value, p[3].Value);
  for (Principal& principal : p) principal.Value /= mean;

  // The middle direction is not used: it follows from the other two.
  const Vector<6> tensor = PrincipalToTensor(p[3].Value, p[2].Value, p[1].Value, p[3].Axis.Dec,
                                             p[3].Axis.Inc, p[1].Axis.Dec, p[1].Axis.Inc);
  for (int i = 1; i <= 6; ++i) r.Tensor[i] = tensor[i];
  for (int i = 1; i <= 3; ++i) r.K[i] = p[4 - i].Value;
  r.Km = mean * double{0.000001f};
  r.Field = 60;
  r.FreqName = "FS";
  r.Frequency = 19100;
  r.Instrument = "SI2B";
  r.OP = settings.P;
  r.HasCoor[1] = r.HasCoor[2] = true;
  r.Active = true;
}

}  // namespace

Outcome ReadSi2bText(std::string_view text, const std::string& path, RecordArray& records,
                     const Settings& settings) {
  Tokens tokens;
  return ReadSpecimens(text, path, records, [&](TextLines& lines, SpecimenRecord& record) {
    TakeSpecimen(lines, tokens, settings, record);
  });
}

Outcome ReadSi2bFile(const std::string& path, RecordArray& records, const Settings& settings) {
  return ReadSi2bText(TextOfFile(path), path, records, settings);
}

}  // namespace velorix
