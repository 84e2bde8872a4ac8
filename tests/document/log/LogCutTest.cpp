#include "document/log/LogBench.h"

namespace portico::test {
namespace {

using Texts = std::vector<std::string>;

/// What a course of the program does to a log; it may be cut off between any two steps of the disk.
struct Course {
  std::string Name;
  std::string Before; // bytes of the log; empty for none
  std::vector<std::string> Steps;
};

std::ostream& operator<<(std::ostream& out, const Course& course) { return out << course.Name; }

class LogCutTest : public StoreTest, public testing::WithParamInterface<Course> {
protected:
  /// Does the course until the disk dies; answers the entities whose append has returned, and the one under way.
  std::pair<std::size_t, std::string> Do(const Course& course) {
    std::size_t done = 0;
    std::string underWay;
    Ref<CXMLDataStore> store;
    try {
      for (const std::string& step : course.Steps) {
        if (step == "make") {
          store = Store();
        } else if (step == "open") {
          store->OpenSession();
        } else if (step == "close") {
          store->CloseSession();
        } else {
          underWay = step;
          Append(store, FromAscii(step));
          ++done;
          underWay.clear();
        }
      }
    } catch (...) {
      Disk->OpenFault = EIO; // nothing more of this process
      store = {};
      Disk->OpenFault = 0;
    }
    return {done, underWay};
  }

  static Texts Entities(const Course& course) {
    Texts entities;
    for (const std::string& step : course.Steps) {
      if (step != "make" && step != "open" && step != "close") entities.push_back(step);
    }
    return entities;
  }
};

TEST_P(LogCutTest, EveryCutLeavesALogThatOpensAndCanBeExtended) {
  const Course& course = GetParam();
  if (!course.Before.empty()) Disk->Put(Path, course.Before);
  const Texts before = course.Before.empty() ? Texts{} : Read(Store());
  Do(course);
  const std::size_t steps = Disk->Steps;
  ASSERT_GT(steps, 100U);

  for (std::size_t cut = 0; cut < steps; ++cut) {
    Disk = std::make_shared<MemoryLogDisk>();
    if (!course.Before.empty()) Disk->Put(Path, course.Before);
    Disk->BytesToLive = cut;
    const auto [done, underWay] = Do(course);
    Disk->BytesToLive.reset();
    if (!Disk->Exists(Path)) {
      EXPECT_EQ(cut, 0U);
      continue;
    }
    const std::string bytes = Bytes();
    SCOPED_TRACE("cut " + std::to_string(cut) + " of\n" + bytes);

    Texts expected = before;
    const Texts entities = Entities(course);
    expected.insert(expected.end(), entities.begin(), entities.begin() + static_cast<std::ptrdiff_t>(done));
    const auto store = Store();
    Texts found = Read(store);
    if (!underWay.empty() && found.size() == expected.size() + 1) expected.push_back(underWay); // just not told of
    ASSERT_EQ(found, expected);
    EXPECT_EQ(Bytes(), bytes);

    store->OpenSession();
    Append(store, u"more");
    store->CloseSession();
    EXPECT_EQ(Tell(Bytes()).back(), "end"); // complete again
    expected.emplace_back("more");
    ASSERT_EQ(Read(Store()), expected);
    if (HasFailure()) return;
  }
}

const std::string Closed = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>\n" + LogHeader +
                           "\n<Session>\n<X Timestamp=\"x\"><![CDATA[7800]]></X>\n</Session>\n</SCPICommLog>\n";

INSTANTIATE_TEST_SUITE_P(
    , LogCutTest,
    testing::Values(Course{"Fresh", "", {"make", "open", "1", "2", "close"}},
                    Course{"TwoSessions", "", {"make", "open", "1", "close", "open", "2", "close"}},
                    Course{"OnAClosedLog", Closed, {"make", "open", "1", "close"}},
                    Course{"OnALogInOneLine",
                           PlainLogOf("<Session><X Timestamp=\"x\">7800</X></Session>"),
                           {"make", "open", "1", "close"}},
                    Course{"OnALogWithAnEpilogue", Closed + "<!-- behind -->", {"make", "open", "1", "close"}},
                    Course{"OnATornLog", Closed.substr(0, Closed.find("7800")) + "78", {"make", "open", "1", "close"}},
                    Course{"OnALogCutInItsTags", Closed.substr(0, Closed.size() - 20), {"make", "open", "1", "close"}}),
    [](const testing::TestParamInfo<Course>& test) { return test.param.Name; });

/// Whoever reads meanwhile finds a log that is whole.
TEST_F(StoreTest, AClosedLogIsExtendedWithoutBeingCutFirst) {
  Disk->Put(Path, Closed);
  Disk->TruncateFault = EIO;
  const auto store = Store();
  store->OpenSession();
  Append(store, u"1");
  EXPECT_EQ(Read(Store()), (Texts{"x", "1"}));
}

/// A full disk makes a save undo what it has written; that can be cut off, too.
TEST_F(StoreTest, ACutThroughTheUndoingOfAFailedSaveLeavesALogThatOpens) {
  bool killed = true;
  for (std::size_t cut = 0; killed; ++cut) {
    Disk = std::make_shared<MemoryLogDisk>();
    auto store = Store();
    store->OpenSession();
    Append(store, u"1");
    Disk->Capacity = Bytes().size() + 40;
    Disk->BytesToLive = Disk->Steps + cut;
    killed = false;
    try {
      Append(store, u"2");
    } catch (const MemoryLogDisk::Killed&) {
      killed = true;
    } catch (const Error& error) {
      EXPECT_EQ(error.Record().Number, 75);
      EXPECT_GT(cut, 90U);
    }
    Disk->BytesToLive.reset();
    Disk->OpenFault = EIO;
    store = {};
    Disk->OpenFault = 0;
    EXPECT_EQ(Read(Store()), Texts{"1"}) << Bytes();
  }
}

} // namespace
} // namespace portico::test
