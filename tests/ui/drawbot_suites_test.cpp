#include "ui/drawbot_suites.h"

#include "tests/ui/fake_drawbot.h"

#include <gtest/gtest.h>

namespace vantle::test {
namespace {

constexpr const char* kNames[] = {"DRAWBOT Draw Suite", "DRAWBOT Supplier Suite", "DRAWBOT Surface Suite",
                                  "DRAWBOT Path Suite"};

TEST(DrawbotSuites, AcquiredAndReleasedInOrder) {
  FakeHost host;
  DrawbotSuites suites;
  EXPECT_EQ(AcquireDrawbotSuites(&host.inData, &host.outData, &suites), PF_Err_NONE);
  EXPECT_TRUE(suites.draw && suites.supplier && suites.surface && suites.path);
  for (const char* name : kNames) EXPECT_EQ(host.suitesHeld[name], 1) << name;
  EXPECT_EQ(ReleaseDrawbotSuites(&host.inData, &host.outData), PF_Err_NONE);

  const std::vector<std::string> expected = {
      "acquire DRAWBOT Draw Suite 1",    "acquire DRAWBOT Supplier Suite 1",
      "acquire DRAWBOT Surface Suite 2", "acquire DRAWBOT Path Suite 1",
      "release DRAWBOT Draw Suite 1",    "release DRAWBOT Supplier Suite 1",
      "release DRAWBOT Surface Suite 2", "release DRAWBOT Path Suite 1"};
  EXPECT_EQ(host.calls, expected);
  EXPECT_EQ(host.Imbalance(), "");
  EXPECT_EQ(host.outData.out_flags, 0);
  EXPECT_TRUE(host.messages.empty());
}

TEST(DrawbotSuites, ADestinationIsNeeded) {
  FakeHost host;
  EXPECT_EQ(AcquireDrawbotSuites(&host.inData, &host.outData, nullptr), PF_Err_UNRECOGNIZED_PARAM_TYPE);
  EXPECT_STREQ(host.outData.return_msg, "NULL suite pointer passed to AEFX_AcquireDrawbotSuites");
  EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
  EXPECT_TRUE(host.calls.empty());
}

TEST(DrawbotSuites, APartlyAcquiredSetIsGivenBack) {
  for (const bool claimsSuccess : {false, true}) {
    for (const char* hidden : kNames) {
      FakeHost host;
      host.hiddenSuite = hidden;
      host.hiddenSuiteSucceeds = claimsSuccess;
      DrawbotSuites suites;
      EXPECT_EQ(AcquireDrawbotSuites(&host.inData, &host.outData, &suites), PF_Err_BAD_CALLBACK_PARAM);
      EXPECT_EQ(host.Imbalance(), "") << hidden;
      EXPECT_FALSE(suites.draw || suites.supplier || suites.surface || suites.path);
      EXPECT_STREQ(host.outData.return_msg, "Not able to acquire AEFX Suite.");
      EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
      EXPECT_EQ(host.messages.size(), 1u);
    }
  }
}

TEST(DrawbotSuites, AcquisitionStopsAtTheMissingOne) {
  FakeHost host;
  host.hiddenSuite = "DRAWBOT Surface Suite";
  DrawbotSuites suites;
  AcquireDrawbotSuites(&host.inData, &host.outData, &suites);
  const std::vector<std::string> expected = {
      "acquire DRAWBOT Draw Suite 1", "acquire DRAWBOT Supplier Suite 1", "acquire DRAWBOT Surface Suite 2",
      "release DRAWBOT Draw Suite 1", "release DRAWBOT Supplier Suite 1"};
  EXPECT_EQ(host.calls, expected);
}

TEST(DrawbotSuites, WithoutABasicSuiteReleasingReportsOncePerMember) {
  FakeHost host;
  host.inData.pica_basicP = nullptr;
  EXPECT_EQ(ReleaseDrawbotSuites(&host.inData, &host.outData), PF_Err_NONE);
  EXPECT_EQ(host.messages, std::vector<std::string>(4, "Not able to release AEFX Suite."));
  EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

TEST(DrawbotSuites, WithoutABasicSuiteNothingIsAcquired) {
  FakeHost host;
  host.inData.pica_basicP = nullptr;
  DrawbotSuites suites;
  EXPECT_EQ(AcquireDrawbotSuites(&host.inData, &host.outData, &suites), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(host.messages, std::vector<std::string>{"Not able to acquire AEFX Suite."});
}

TEST(OneSuite, IsAcquiredAndReleased) {
  FakeHost host;
  const void* suite = nullptr;
  EXPECT_EQ(AcquireSuite(&host.inData, &host.outData, "PF AE App Suite", 1, &suite), PF_Err_NONE);
  EXPECT_NE(suite, nullptr);
  EXPECT_EQ(ReleaseSuite(&host.inData, &host.outData, "PF AE App Suite", 1), PF_Err_NONE);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(OneSuite, WhatAFailedAcquisitionLeavesBehindIsNotUsed) {
  FakeHost host;
  const void* suite = &host;
  EXPECT_EQ(AcquireSuite(&host.inData, &host.outData, "No Such Suite", 1, &suite), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(suite, nullptr);
  EXPECT_STREQ(host.outData.return_msg, "Not able to acquire AEFX Suite.");
}

TEST(OneSuite, WithoutABasicSuiteBothReport) {
  FakeHost host;
  host.inData.pica_basicP = nullptr;
  const void* suite = nullptr;
  EXPECT_EQ(AcquireSuite(&host.inData, &host.outData, "PF AE App Suite", 1, &suite),
            PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(ReleaseSuite(&host.inData, &host.outData, "PF AE App Suite", 1), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(host.messages,
            (std::vector<std::string>{"Not able to acquire AEFX Suite.", "Not able to release AEFX Suite."}));
}

TEST(OneSuite, ReportsWithoutAFormattedPrintOfTheHost) {
  FakeHost host;
  host.inData.utils = nullptr;
  ReportError(&host.inData, &host.outData, "Not able to acquire AEFX Suite.");
  EXPECT_STREQ(host.outData.return_msg, "Not able to acquire AEFX Suite.");
  ReportError(nullptr, nullptr, "nobody listens");
  EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

}  // namespace
}  // namespace vantle::test
