#include <cstdlib>
#include <utility>

#include <gtest/gtest.h>

#include <ZorConfig.h>

template <class Value>
std::pair<Value, bool> Read(const char* name, long (*query)(Value*), const char* text) {
  setenv(name, text, 1);
  Value value = Value{1};
  const bool is_malformed = query(&value) != 0;
  EXPECT_EQ(query(nullptr) != 0, is_malformed);
  unsetenv(name);
  return {value, is_malformed};
}

TEST(Config, OnlyDocumentedSpellingsCount) {
  for (const char* text : {"2147483648", "3x", " 3", "3.0", "+3", "on"}) {
    EXPECT_EQ(Read("ZOR_TBB", ZORMV::ZorGetStaticTBB, text), std::pair(0, true)) << text;
  }
  EXPECT_EQ(Read("ZOR_TBB", ZORMV::ZorGetStaticTBB, "-2"), std::pair(-2, false));
  EXPECT_EQ(Read("ZOR_TBB", ZORMV::ZorGetStaticTBB, ""), std::pair(0, false));
  EXPECT_EQ(Read("ZOR_EFFICIENCY", ZORMV::ZorGetStaticEfficiency, "7"), std::pair(7, false));
  EXPECT_EQ(Read("ZOR_GPU", ZORMV::ZorGetStaticGPU, "oN"), std::pair(true, false));
  EXPECT_EQ(Read("ZOR_GPU", ZORMV::ZorGetStaticGPU, "FALSE"), std::pair(false, false));
  EXPECT_EQ(Read("ZOR_GPU", ZORMV::ZorGetStaticGPU, "tru"), std::pair(false, true));
  EXPECT_EQ(Read("ZOR_OTHER", ZORMV::ZorGetStaticGPU, "1"), std::pair(false, false));
}
