#pragma once
// Answers the sidebar's questions on worker threads, one thread per lane while the lane has
// work: a volume's questions wait for each other, never for another volume's. A thread stuck
// in a card that stopped answering holds up its lane only. Answers go to `deliver`, on the
// worker's thread; the owner moves them where they belong. Close (or the destructor) stops
// the delivery at once and leaves a stuck thread behind, as the process end will. No Qt.
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "model/FolderLister.h"
#include "model/FolderQuestion.h"

namespace lumivex {

class QuestionLanes {
  public:
    using Deliver = std::function<void(FolderAnswer)>;

    QuestionLanes(std::shared_ptr<const FolderLister> lister, Deliver deliver);
    ~QuestionLanes();
    QuestionLanes(const QuestionLanes&) = delete;
    QuestionLanes& operator=(const QuestionLanes&) = delete;

    void Ask(std::vector<FolderQuestion> questions);
    // Questions of rounds before `round` that no worker has begun are dropped unanswered.
    void SetRound(std::uint64_t round);
    // Drops what waits in `lane` (a volume that went away).
    void DropLane(const std::string& lane);
    // No answer is delivered after this returns. Waits at most `limit` for the workers.
    void Close(std::chrono::milliseconds limit = std::chrono::milliseconds(200));
    // Workers running now (for tests).
    int Busy() const;

  private:
    struct State;
    static void Work(const std::shared_ptr<State>& state, std::string lane);

    std::shared_ptr<State> state_;
};

}  // namespace lumivex
