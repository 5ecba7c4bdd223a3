#include "config/name_hash.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "config/first_by_name.h"

namespace zeapi::testing {
namespace {

// Key and texts of the examples that the algorithm was published with: bytes counted up from 0.
constexpr HashKey kCountingKey = {0x0706050403020100, 0x0F0E0D0C0B0A0908};

std::string Counting(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<char>(i);
  return text;
}

TEST(NameHash, IsSipHash24) {
  EXPECT_EQ(NameHash("", kCountingKey), 0x726FDB47DD0E0E31);
  EXPECT_EQ(NameHash(Counting(8), kCountingKey), 0x93F5F5799A932462);
  EXPECT_EQ(NameHash(Counting(15), kCountingKey), 0xA129CA6149BE45E5);
}

TEST(NameHash, IsThatOfBothCases) {
  EXPECT_EQ(NameHash("Section {1}", kCountingKey), NameHash("sECTION {1}", kCountingKey));
  EXPECT_NE(NameHash("Section {1}", kCountingKey), NameHash("Section [1]", kCountingKey));
  EXPECT_NE(NameHash("\xE4", kCountingKey), NameHash("\xC4", kCountingKey));
}

TEST(NameHash, HangsOnBothHalvesOfTheKey) {
  EXPECT_NE(NameHash("name", kCountingKey), NameHash("name", {kCountingKey[0], 1}));
  EXPECT_NE(NameHash("name", kCountingKey), NameHash("name", {1, kCountingKey[1]}));
}

TEST(NameHash, ProcessHasOneKey) {
  const HashKey key = ProcessHashKey();
  EXPECT_EQ(key, ProcessHashKey());
  EXPECT_NE(key[0], key[1]);
}

// Names of one FNV-1a hash number, which the index once used: any choice of one text of each row, in a row.
constexpr const char* kColliding[][2] = {
    {"QIMUV2WY", "HKRWIOMY"}, {"GYZN6MT2", "MFDR2ZXZ"}, {"O6EE3CB4", "R7DQSPOQ"},
    {"TXUMU7JW", "VKVUVYHR"}, {"7QVV7KMV", "55CSDIF4"}, {"4RD5LRMN", "W7AT5EGZ"},
    {"GWVYQQHQ", "AQAUPMJU"}, {"ADTU3VN3", "H63R4AWQ"}, {"5RZX3XWY", "5YK6PZUR"},
    {"2QXZJECO", "Z54WO4MF"}, {"Z4KZBOGG", "FINEDG27"}, {"OHLIZZCT", "AT6FJ4JN"}};

std::vector<std::string> CollidingNames() {
  std::vector<std::string> names = {""};
  for (const auto& row : kColliding) {
    std::vector<std::string> longer;
    for (const std::string& name : names) {
      for (const char* text : row) longer.push_back(name + text);
    }
    names.swap(longer);
  }
  return names;
}

std::size_t looks = 0;

std::string_view CountedName(const std::string& item) {
  ++looks;
  return item;
}

// Each name was compared with all before it: a file of half a megabyte kept its reader busy for minutes.
TEST(FirstByName, NamesThatAreMadeToCollideAreHardlyEverCompared) {
  std::vector<std::string> names = CollidingNames();
  FirstByName<std::string, CountedName> index;
  looks = 0;
  for (std::string& name : names) index.Add(&name);
  for (std::string& name : names) ASSERT_EQ(index.Find(name), &name);
  EXPECT_LE(looks, 4 * names.size());
}

TEST(FirstByName, FirstOfANameStays) {
  std::deque<std::string> names;
  FirstByName<std::string, CountedName> index;
  EXPECT_EQ(index.Find("name"), nullptr);
  std::string* first = &names.emplace_back("name");
  index.Add(first);
  index.Add(&names.emplace_back("NAME"));
  for (int i = 0; i < 100; ++i) index.Add(&names.emplace_back(std::to_string(i)));
  EXPECT_EQ(index.Find("Name"), first);
  EXPECT_EQ(index.Find("99"), &names.back());
  EXPECT_EQ(index.Find("100"), nullptr);
  index.Clear();
  EXPECT_EQ(index.Find("name"), nullptr);
}

}  // namespace
}  // namespace zeapi::testing
