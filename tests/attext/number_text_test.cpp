#include "attext/number_text.h"
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace {

struct Case {
  double value;
  const char* text;
};

class NumberText : public testing::TestWithParam<Case> {};

TEST_P(NumberText, HasFiveDigitsAndAPoint) {
  EXPECT_EQ(attext::numberText(GetParam().value).toUtf8(), GetParam().text);
}

constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(Fixed, NumberText,
                         testing::Values(Case{0, "0."}, Case{-0.0, "-0."}, Case{1, "1."}, Case{-1, "-1."},
                                         Case{12.5, "12.5"}, Case{-0.25, "-0.25"}, Case{0.1, "0.1"},
                                         Case{1.5707963267948966, "1.5708"}, Case{1234.5678, "1234.6"},
                                         Case{100, "100."}, Case{12345, "12345."}, Case{99999.4, "99999."},
                                         Case{0.123456, "0.12346"}, Case{0.99999649, "1."}));

INSTANTIATE_TEST_SUITE_P(Exponential, NumberText,
                         testing::Values(Case{100000, "1.e+005"}, Case{123456, "1.2346e+005"},
                                         Case{-31415e6, "-3.1415e+010"}, Case{1e100, "1.e+100"},
                                         Case{std::numeric_limits<double>::max(), "1.7977e+308"},
                                         Case{0.05, "5.e-002"}, Case{0.0001, "1.e-004"},
                                         Case{0.012345, "1.2345e-002"}, Case{1.2246e-16, "1.2246e-016"},
                                         Case{std::numeric_limits<double>::denorm_min(), "4.9407e-324"}));

// The rounded value decides about the notation.
INSTANTIATE_TEST_SUITE_P(Carry, NumberText,
                         testing::Values(Case{99999.5, "1.e+005"}, Case{9.99996, "10."},
                                         Case{0.0999999, "0.1"}, Case{0.0999949, "9.9995e-002"},
                                         Case{9.999996e99, "1.e+100"}));

// Ties that are stored exactly go away from zero; where the stored value lies a little off the tie it goes
// there (expected texts from exact decimal arithmetic).
INSTANTIATE_TEST_SUITE_P(Ties, NumberText,
                         testing::Values(Case{12.3125, "12.313"}, Case{-100.125, "-100.13"},
                                         Case{20000.5, "20001."}, Case{1234.25, "1234.3"},
                                         Case{12.3135, "12.313"}, Case{12.3145, "12.315"},
                                         Case{2.00005, "2."}, Case{1.00005, "1.0001"}));

INSTANTIATE_TEST_SUITE_P(NoNumber, NumberText,
                         testing::Values(Case{infinity, ""}, Case{-infinity, ""}, Case{std::nan(""), ""}));

} // namespace
