// The site tr245 in the text formats: what each keeps of the AMS file.

#include <gtest/gtest.h>

#include "datafiles/asc_file.h"
#include "datafiles/si2b_file.h"
#include "datafiles/spin_file.h"
#include "examples/text_sites.h"
#include "tensor/derivation.h"

namespace velorix {
namespace {

const std::string Folder = VELORIX_SOURCE_DIR "/examples/";

void ExpectTensorsNear(const RecordArray& records, const examples::ExampleFile& file, double near) {
  ASSERT_EQ(records.Count(), static_cast<int>(file.Records.size()));
  for (int n = 1; n <= records.Count(); ++n) {
    const SpecimenRecord& wanted = file.Records[static_cast<std::size_t>(n - 1)];
    EXPECT_EQ(records[n].Name, wanted.Name);
    EXPECT_NEAR(records[n].Km, wanted.Km, 1e-5 * wanted.Km);
    for (int i = 1; i <= 6; ++i)
      EXPECT_NEAR(records[n].Tensor[i], wanted.Tensor[i], near) << n << i;
  }
}

TEST(TextExamples, KeepTheTensorsOfTheSite) {
  RecordArray asc, si2b, spin;
  ASSERT_TRUE(ReadAscFile(Folder + "formats/tr245.asc", asc));
  ASSERT_TRUE(ReadSi2bFile(Folder + "formats/tr245.AMS", si2b, Settings()));
  ASSERT_TRUE(ReadSpinFile(Folder + "formats/tr245.txt", spin, Settings()));
  const examples::ExampleFile site = examples::Tr245File();
  ExpectTensorsNear(asc, site, 6e-6);  // five decimals
  ExpectTensorsNear(spin, site, 1e-6);
  ExpectTensorsNear(si2b, examples::GeographicFile(), 2e-3);  // a decimal of a degree
  for (int n = 1; n <= asc.Count(); ++n) {
    const SpecimenRecord& wanted = site.Records[static_cast<std::size_t>(n - 1)];
    EXPECT_EQ(asc[n].OrientAz, wanted.OrientAz);
    EXPECT_EQ(asc[n].OrientInc, wanted.OrientInc);
    EXPECT_EQ(asc[n].FoliName[1], "S");  // one letter a code
    EXPECT_EQ(asc[n].FoliAz[1], wanted.FoliAz[1]);
    EXPECT_NEAR(asc[n].FTest[0], wanted.FTest[0], 0.06);
    EXPECT_NEAR(asc[n].E[2], wanted.E[2], 0.06);
    EXPECT_NEAR(asc[n].KSD[1], wanted.KSD[1], 1e-4);
  }
}

}  // namespace
}  // namespace velorix
