#include "host/engine/ledger.h"

#include <gtest/gtest.h>
#include <thread>

namespace vantle::host {
namespace {

TEST(Ledger, IsSilentWhenEverythingCameBack) {
  Ledger ledger;
  Take(ledger, Item::kSuite, "\"A\" 1");
  Take(ledger, Item::kSuite, "\"A\" 1");
  Give(ledger, Item::kSuite, "\"A\" 1");
  Give(ledger, Item::kSuite, "\"A\" 1");
  EXPECT_TRUE(SettleLedger(ledger).empty());
  EXPECT_TRUE(DrainProblems(ledger).empty());
}

TEST(Ledger, NamesWhatIsMissing) {
  Ledger ledger;
  Take(ledger, Item::kSuite, "\"A\" 1");
  Take(ledger, Item::kSuite, "\"A\" 1");
  Give(ledger, Item::kSuite, "\"A\" 1");
  Take(ledger, Item::kCheckout, "parameter 2");
  const std::vector<std::string> expected = {"suite \"A\" 1 taken 2 times, given back 1",
                                             "checkout of parameter 2 taken 1 times, given back 0"};
  EXPECT_EQ(SettleLedger(ledger), expected);
  EXPECT_TRUE(SettleLedger(ledger).empty()) << "reported twice";
}

TEST(Ledger, DoesNotLetOneKindPayForAnother) {
  Ledger ledger;
  Take(ledger, Item::kSuite, "\"A\" 1");
  Give(ledger, Item::kSuite, "\"A\" 2");
  EXPECT_EQ(DrainProblems(ledger),
            std::vector<std::string>{"suite \"A\" 2 given back without having been taken"});
  EXPECT_EQ(SettleLedger(ledger).size(), 1U);
}

TEST(Ledger, CountsRepeatedProblemsOnOneLine) {
  Ledger ledger;
  for (int i = 0; i < 3; ++i) {
    NoteProblem(ledger, "same");
  }
  NoteProblem(ledger, "other");
  const std::vector<std::string> expected = {"same (3 times)", "other"};
  EXPECT_EQ(DrainProblems(ledger), expected);
  EXPECT_TRUE(DrainProblems(ledger).empty());
}

TEST(Ledger, AddsUpOverThreads) {
  Ledger sum;
  std::vector<std::thread> threads;
  for (int t = 0; t < 8; ++t) {
    threads.emplace_back([&] {
      Ledger own;
      for (int i = 0; i < 1000; ++i) {
        Take(own, Item::kLock, "handle");
        Take(sum, Item::kBlock, "");
        Give(own, Item::kLock, "handle");
        Give(sum, Item::kBlock, "");
      }
      AddCounts(sum, own);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(Total(sum, Item::kLock).taken, 8000);
  EXPECT_EQ(Total(sum, Item::kBlock).given, 8000);
  EXPECT_TRUE(SettleLedger(sum).empty());
}

}  // namespace
}  // namespace vantle::host
