// The sidebar's reading of folders off the caller's thread: a volume whose listing blocks holds
// up nobody else, its answer lands when it comes, answers for rows that went change nothing,
// and a closed runner delivers nothing more, even from a worker that was stuck.
#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <mutex>
#include <thread>

#include "SidebarTestSupport.h"
#include "model/FolderTree.h"
#include "model/QuestionLanes.h"

namespace lumivex {
namespace {

using namespace std::chrono_literals;

// What a window's event loop does: answers queue up from the workers and are taken in on
// this thread.
class Inbox {
  public:
    QuestionLanes::Deliver Deliver() {
        return [this](FolderAnswer a) {
            std::lock_guard lock(m_);
            answers_.push_back(std::move(a));
        };
    }
    // Applies what has come; true when something came within `limit`.
    bool Drain(FolderTree& tree, FolderTree::Edits& edits, std::chrono::milliseconds limit) {
        const auto end = std::chrono::steady_clock::now() + limit;
        std::deque<FolderAnswer> got;
        do {
            std::this_thread::sleep_for(2ms);
            std::lock_guard lock(m_);
            got.swap(answers_);
        } while (got.empty() && std::chrono::steady_clock::now() < end);
        for (const FolderAnswer& a : got)
            tree.Apply(a, edits);
        return !got.empty();
    }

  private:
    std::mutex m_;
    std::deque<FolderAnswer> answers_;
};

struct CountEdits : FolderTree::Edits {
    void Marked(RowRecord& row) override { marked.push_back(row.path); }
    std::vector<std::string> marked;
};

class QuestionLanesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        stuck_.Dirs({"DCIM/100STUCK"});
        fine_.Dirs({"DCIM/100FINE"});
        tree_.MakeTable({stuck_.Str(), fine_.Str()});
    }
    RowRecord& Top(std::size_t i) { return *tree_.DataArray()[i]; }
    test::ScratchTree stuck_, fine_;
    std::shared_ptr<test::GateLister> lister_ = std::make_shared<test::GateLister>(stuck_.Str());
    FolderTree tree_;
    Inbox inbox_;
    CountEdits edits_;
};

TEST_F(QuestionLanesTest, AStuckVolumeHoldsUpOnlyItselfAndItsAnswerLandsLater) {
    QuestionLanes lanes(lister_, inbox_.Deliver());
    lanes.Ask(tree_.TakeQuestions());
    // The other volume is marked while the stuck one's worker waits.
    ASSERT_TRUE(inbox_.Drain(tree_, edits_, 10s));
    EXPECT_EQ(edits_.marked, std::vector<std::string>{fine_.Str()});
    EXPECT_EQ(std::tie(Top(1).marked, Top(1).isLeaf), std::make_tuple(false, "true"));
    EXPECT_EQ(std::tie(Top(2).marked, Top(2).isLeaf), std::make_tuple(true, "false"));

    lister_->Release();
    ASSERT_TRUE(inbox_.Drain(tree_, edits_, 10s));
    EXPECT_EQ(std::tie(Top(1).marked, Top(1).isLeaf), std::make_tuple(true, "false"));
}

TEST_F(QuestionLanesTest, AnswersForRowsThatWentChangeNothingAndAClosedRunnerDeliversNothing) {
    QuestionLanes lanes(lister_, inbox_.Deliver());
    lanes.Ask(tree_.TakeQuestions());
    ASSERT_TRUE(inbox_.Drain(tree_, edits_, 10s));
    // The stuck card is pulled, its answer comes afterwards: no row takes it.
    int index = -1;
    const auto removed = tree_.RemoveRowOfPath(stuck_.Str(), index);
    ASSERT_EQ(index, 1);
    lister_->Release();
    ASSERT_TRUE(inbox_.Drain(tree_, edits_, 10s));
    EXPECT_FALSE(removed->marked);

    // Closed while a worker is stuck: the close returns, and the late answer is not delivered.
    auto held = std::make_shared<test::GateLister>(fine_.Str());
    QuestionLanes closing(held, inbox_.Deliver());
    tree_.MakeTable({fine_.Str()});
    closing.Ask(tree_.TakeQuestions());
    for (int i = 0; i < 500 && !held->Waiting(); ++i)
        std::this_thread::sleep_for(2ms);
    ASSERT_TRUE(held->Waiting());
    closing.Close(20ms);
    held->Release();
    for (int i = 0; i < 500 && closing.Busy() > 0; ++i)
        std::this_thread::sleep_for(2ms);
    EXPECT_FALSE(inbox_.Drain(tree_, edits_, 0ms));
}

// The volumes' answers come in any order; the first volume in list order with camera media
// wins once every volume above it has answered, and a volume that went counts as none.
TEST(CameraSearchTest, TheFirstVolumeInListOrderWinsWhateverOrderTheAnswersComeIn) {
    auto answer = [](std::uint64_t id, const char* volume, const char* folder) {
        FolderAnswer a;
        a.serial = id;
        a.path = volume;
        a.folder = folder;
        return a;
    };
    const struct {
        const char* name;
        std::vector<FolderAnswer> answers;
        std::vector<std::string> dropped, droppedAfter;
        const char* winner;  // after the last answer; "" for none
    } cases[] = {
        // clang-format off
        {"card first, then a plain volume above",
         {answer(7, "/b", "/b/DCIM/100"), answer(7, "/a", "")}, {}, {}, "/b"},
        {"card below a volume that never answers", {answer(7, "/b", "/b/DCIM/100")}, {}, {}, ""},
        {"a card pulled before its answer", {answer(7, "/a", ""), answer(7, "/b", "/b/DCIM/100")},
         {"/b"}, {}, ""},
        {"the volume above went away after the card answered",
         {answer(7, "/b", "/b/DCIM/100")}, {}, {"/a"}, "/b"},
        {"two cards", {answer(7, "/b", "/b/DCIM/100"), answer(7, "/a", "/a/DCIM/101")}, {}, {},
         "/a"},
        {"an old search's answer", {answer(6, "/a", "/a/DCIM/100"), answer(7, "/b", "")}, {}, {},
         ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        CameraSearch search;
        search.Begin(7, {"/a", "/b"});
        for (const std::string& v : c.dropped)
            search.Drop(v);
        std::optional<FolderAnswer> won;
        for (const FolderAnswer& a : c.answers)
            if (auto w = search.Take(a)) won = w;
        for (const std::string& v : c.droppedAfter)
            if (auto w = search.Drop(v)) won = w;
        EXPECT_EQ(won ? won->path : "", c.winner) << c.name;
    }
}

}  // namespace
}  // namespace lumivex
