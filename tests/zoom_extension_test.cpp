// The zoom conversions: exact single- and double-precision steps, the same on
// every target.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/stub_extensions.h"
#include "vantrel/ddk.h"

using namespace vantrel::ddk;

namespace {

struct ErrorDeleter {
  void operator()(DDKError* e) const { ddk_free_error(e); }
};
using ErrorPtr = std::unique_ptr<DDKError, ErrorDeleter>;

DDKError* failure(const char* text) {
  const int code = 3;
  return ddk_new_error(text, &code);
}

// A lens with scripted factors and magnification that records what it is sent.
struct Lens : testing_support::StubZoom {
  unsigned int first = 3000;
  unsigned int second = 100;
  bool factorsFail = false;
  int factorCalls = 0;
  unsigned char magnification = 0;
  bool magnificationFails = false;

  bool sent = false;
  unsigned char sentMagnification = 0;
  const unsigned char* sentOption = nullptr;
  const char* sentToken = nullptr;
  DDKError* answer = nullptr;  // what setMagnification returns

  DDKError* magnificationFactors(const char*, unsigned int& a, unsigned int& b) override {
    ++factorCalls;
    if (factorsFail) return failure("no factors");  // released by the conversion
    a = first;
    b = second;
    return nullptr;
  }
  DDKError* getMagnification(const char*, unsigned char& m) override {
    if (magnificationFails) return failure("lens offline");
    m = magnification;
    return nullptr;
  }
  DDKError* setMagnification(const char* token, const unsigned char& m, const unsigned char& option) override {
    sent = true;
    sentToken = token;
    sentMagnification = m;
    sentOption = &option;
    return answer;
  }
};

struct Factors {
  unsigned int first, second;
  bool fail;
};
const Factors kThirty{3000, 100, false};
const Factors kFailing{0, 0, true};

TEST(ZoomGetHundredths, ConvertsWithTheScaleFactor) {
  const struct {
    Factors factors;
    unsigned int magnification;
    unsigned int hundredths;
  } cases[] = {
      {kThirty, 50, 1500},
      {kThirty, 100, 3000},
      {kThirty, 101, 3010},  // above 100: F * 100 + 10
      {kThirty, 255, 3010},
      {kThirty, 0, 100},
      {kThirty, 1, 30},
      {kFailing, 7, 7},      // F = 1.0
      {kFailing, 101, 110},
      {{150, 100, false}, 1, 2},    // 1.5 rounds half up
      {{150, 100, false}, 3, 5},    // 4.5 rounds half up
      // m * F in single precision: 50 * 1.01f = 50.5f exactly, so 51; a
      // double product (50.49999...) would give 50.
      {{101, 100, false}, 50, 51},
      {{333, 100, false}, 50, 167},
      // F is widened from single: 3.33f * 100 + 10 = 342.99999..., so 342.
      {{333, 100, false}, 101, 342},
      // F rounded once from the double product: 1.06 * 1.25 -> 1.325f.
      // Single-precision quotients would make 26.
      {{106, 125, false}, 20, 27},
      {{4294967295u, 4294967295u, false}, 101, 4294967295u},  // saturates
      {{0, 100, false}, 50, 0},  // F = 0
      {{0, 100, false}, 101, 10},
  };
  for (const auto& c : cases) {
    Lens lens;
    lens.first = c.factors.first;
    lens.second = c.factors.second;
    lens.factorsFail = c.factors.fail;
    lens.magnification = static_cast<unsigned char>(c.magnification);
    unsigned int hundredths = 12345;
    EXPECT_EQ(lens.getMagHundredthsX("lens", hundredths), nullptr);
    EXPECT_EQ(hundredths, c.hundredths) << c.factors.first << " x " << c.factors.second << ", m " << c.magnification;
    EXPECT_EQ(lens.factorCalls, 1);
  }
}

TEST(ZoomSetHundredths, ConvertsWithTheScaleFactor) {
  const struct {
    Factors factors;
    unsigned int hundredths;
    unsigned int magnification;
  } cases[] = {
      {kThirty, 1500, 50},
      {kThirty, 101, 3},  // 3.37 rounds to 3
      {kThirty, 100, 0},
      {kThirty, 0, 0},
      {kThirty, 3000, 100},
      {kFailing, 250, 250},
      {kFailing, 300, 44},  // low 8 bits of 300
      {kFailing, 101, 101},
      {{200, 100, false}, 101, 51},  // 50.5 rounds half up
      {{200, 100, false}, 103, 52},
      // 126 / 1.12f in single precision is 112.5f, so 113; in double 112.
      {{112, 100, false}, 126, 113},
      // F rounded once from the double product 1.01 * 1.05 gives 92;
      // single-precision quotients give 93.
      {{101, 105, false}, 2270, 92},
      {{1, 1, false}, 4294967295u, 255},  // the quotient saturates
      {{0, 100, false}, 300, 44},  // a zero factor counts as 1.0
  };
  for (const auto& c : cases) {
    Lens lens;
    lens.first = c.factors.first;
    lens.second = c.factors.second;
    lens.factorsFail = c.factors.fail;
    const unsigned char option = 9;
    EXPECT_EQ(lens.setMagHundredthsX("lens", c.hundredths, option), nullptr);
    ASSERT_TRUE(lens.sent);
    EXPECT_EQ(lens.sentMagnification, c.magnification)
        << c.factors.first << " x " << c.factors.second << ", " << c.hundredths << " hundredths";
    EXPECT_EQ(lens.sentOption, &option) << "the option passes by the same reference";
    EXPECT_EQ(lens.factorCalls, 1);
  }
}

TEST(ZoomSetHundredths, AnswersWhatSetMagnificationAnswers) {
  Lens lens;
  DDKError* refusal = failure("at the end stop");
  lens.answer = refusal;
  const char token[] = "lens-2";
  ErrorPtr error(lens.setMagHundredthsX(token, 500u, 0));
  EXPECT_EQ(error.get(), refusal);
  EXPECT_EQ(lens.sentToken, token);
}

TEST(ZoomGetHundredths, FailingMagnificationReportsOneHundred) {
  Lens lens;
  lens.magnificationFails = true;
  unsigned int hundredths = 0;
  ErrorPtr error(lens.getMagHundredthsX("lens", hundredths));
  ASSERT_NE(error, nullptr);
  EXPECT_STREQ(error->message, "lens offline");
  EXPECT_EQ(hundredths, 100u);
  EXPECT_EQ(lens.factorCalls, 0) << "the factors are not asked for";
}

TEST(ZoomConversions, AskForTheFactorsOnEveryCall) {
  Lens lens;
  lens.magnification = 50;
  unsigned int hundredths = 0;
  EXPECT_EQ(lens.getMagHundredthsX("lens", hundredths), nullptr);
  lens.first = 1000;  // the lens changed its factors
  EXPECT_EQ(lens.getMagHundredthsX("lens", hundredths), nullptr);
  EXPECT_EQ(hundredths, 500u);
  EXPECT_EQ(lens.setMagHundredthsX("lens", 1000u, 0), nullptr);
  EXPECT_EQ(lens.sentMagnification, 100);
  EXPECT_EQ(lens.factorCalls, 3);
}

TEST(ZoomDefaults, MagnificationIsNotSupported) {
  testing_support::StubZoom plugin;  // overrides neither pair
  unsigned char magnification = 55;
  ErrorPtr get(plugin.getMagnification("lens", magnification));
  ASSERT_NE(get, nullptr);
  EXPECT_STREQ(get->message, "Operation not supported.");
  EXPECT_EQ(get->code, 7);
  EXPECT_EQ(magnification, 0);

  ErrorPtr set(plugin.setMagnification("lens", 3, 0));
  ASSERT_NE(set, nullptr);
  EXPECT_EQ(set->code, 7);

  unsigned int hundredths = 0;
  ErrorPtr getHundredths(plugin.getMagHundredthsX("lens", hundredths));
  ASSERT_NE(getHundredths, nullptr);
  EXPECT_EQ(getHundredths->code, 7);
  EXPECT_EQ(hundredths, 100u);

  ErrorPtr setHundredths(plugin.setMagHundredthsX("lens", 250u, 0));
  ASSERT_NE(setHundredths, nullptr);
  EXPECT_STREQ(setHundredths->message, "Operation not supported.");
}

}  // namespace
