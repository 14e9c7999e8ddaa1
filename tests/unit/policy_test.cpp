#include "data/policy.h"

#include <gtest/gtest.h>

#include <regex>

#include "fakes.h"

namespace jotlets {
namespace {

using Value = PolicySource::Value;
using Names = std::vector<std::string>;

class FakePolicy final : public PolicySource {
 public:
  std::map<Text, Value, std::less<>> values;
  Value Read(TextView name) const override {
    const auto found = values.find(name);
    return found == values.end() ? Value() : found->second;
  }
};

Value Number(std::uint32_t number) { return {Value::Type::kNumber, number, {}}; }
Value Words(TextView text) { return {Value::Type::kText, 0, Text(text)}; }

class PolicyKey : public testing::Test {
 protected:
  FakePolicy key;
  FakeLog log;
  Options user;

  Options Holding() { return WithPolicy(user, ReadPolicy(key, log)); }
};

TEST_F(PolicyKey, FixesNothingWhenEmpty) {
  user.networking = true;
  EXPECT_TRUE(Holding() == user);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(PolicyKey, WinsOverTheUsersOptionsAndSaysSo) {
  user.networking = true;
  user.keepDeleted = 9;
  key.values = {
      {u"SyncWithServer", Number(1)}, {u"ServerName", Words(u"srv,99")}, {u"UseDNS", Number(1)},
      {u"UseNetworking", Number(0)},  {u"Port", Number(1234)},           {u"LogAllNetworking", Number(1)},
      {u"SkinFile", Words(u"grey")},  {u"UseEmail", Number(1)},          {u"SMTPServerName", Words(u"mx")}};
  const Options before = user;
  Options expected = user;
  expected.serverIp = u"srv,99", expected.useDns = true, expected.networking = false, expected.netPort = 1234;
  expected.skin = u"grey", expected.useEmail = 1, expected.smtpServer = u"mx";
  EXPECT_TRUE(Holding() == expected);
  EXPECT_TRUE(user == before);
  EXPECT_EQ(log.lines, (std::vector<Text>{u"GPO server ip: srv,99", u"GPO usedns:yes", u"GPO network:no",
                                          u"GPO port 1234", u"GPO logalltoserver: yes", u"GPO useemail1",
                                          u"GPO smtp server:mx"}));
  const Policy policy = ReadPolicy(key, log);
  EXPECT_TRUE(policy.syncWithServer == true && policy.logAllNetworking == true);
}

TEST_F(PolicyKey, MeansYesOnlyByOne) {
  user.useDns = true;
  for (const std::uint32_t number : {0u, 2u, 0xFFFFFFFFu}) {
    key.values = {{u"UseDNS", Number(number)}, {u"SyncWithServer", Number(number)}};
    log.lines.clear();
    EXPECT_FALSE(Holding().useDns);
    EXPECT_TRUE(ReadPolicy(key, log).syncWithServer == false);
    EXPECT_EQ(log.lines[0], u"GPO usedns:no");
  }
}

TEST_F(PolicyKey, TakesNoPortThatIsNone) {
  for (const std::uint32_t number : {0u, 65536u, 0xFFFFFFFFu}) {
    key.values = {{u"Port", Number(number)}};
    EXPECT_TRUE(Holding() == user);
    EXPECT_TRUE(log.Holds(u"GPO ignored, no port: "));
    log.lines.clear();
  }
  key.values = {{u"Port", Number(65535)}};
  EXPECT_EQ(Holding().netPort, 65535);
}

TEST_F(PolicyKey, OfAnotherTypeIsIgnoredWithALogLine) {
  for (const TextView name : PolicyValueNames()) {
    const bool text = name == u"ServerName" || name == u"SkinFile" || name == u"SMTPServerName";
    for (const Value& wrong : {text ? Number(1) : Words(u"1"), Value{Value::Type::kOther, 1, u"x"}}) {
      key.values = {{Text(name), wrong}};
      log.lines.clear();
      EXPECT_TRUE(Holding() == user) << ToUtf8(name);
      EXPECT_EQ(log.lines, std::vector<Text>{u"GPO ignored, a value of the wrong type: " + Text(name)});
    }
  }
}

// The first group of every match, sorted.
Names Found(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  Names found;
  for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
    found.push_back((*at)[1]);
  std::sort(found.begin(), found.end());
  return found;
}

TEST(PolicyTemplate, NamesTheValuesThatAreReadAndHasItsTexts) {
  const std::string admx = FileBytes("../src/res/policy/jotlets.admx");
  const std::string adml = FileBytes("../src/res/policy/en-US/jotlets.adml");
  Names names;
  for (const TextView name : PolicyValueNames()) names.push_back(ToUtf8(name));
  std::sort(names.begin(), names.end());
  EXPECT_EQ(Found(admx, "valueName=\"([^\"]*)\""), names);
  EXPECT_EQ(Found(admx, "key=\"([^\"]*)\""), Names(names.size(), "Software\\Policies\\Brask\\Jotlets"));
  EXPECT_EQ(Found(admx, "class=\"([^\"]*)\""), Names(names.size(), "Machine"));
  EXPECT_EQ(Found(admx, "\\$\\(string\\.([^)]*)\\)"), Found(adml, "<string id=\"([^\"]*)\""));
  EXPECT_EQ(Found(admx, "\\$\\(presentation\\.([^)]*)\\)"), Found(adml, "<presentation id=\"([^\"]*)\""));
  EXPECT_EQ(Found(admx, "<(?:text|decimal) id=\"([^\"]*)\""), Found(adml, "refId=\"([^\"]*)\""));
}

}  // namespace
}  // namespace jotlets
