#include "model/QuestionLanes.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

namespace lumivex {

// Shared with the workers, so that one left behind still finds it.
struct QuestionLanes::State {
    std::shared_ptr<const FolderLister> lister;
    std::mutex m;
    std::condition_variable idle;
    std::map<std::string, std::deque<FolderQuestion>> waiting;  // by lane
    std::map<std::string, bool> running;                        // a worker serves the lane
    int busy = 0;
    std::atomic<std::uint64_t> round{0};
    bool closed = false;
    std::mutex deliverLock;  // held while delivering, so Close can wait out a delivery
    Deliver deliver;
};

QuestionLanes::QuestionLanes(std::shared_ptr<const FolderLister> lister, Deliver deliver)
    : state_(std::make_shared<State>()) {
    state_->lister = std::move(lister);
    state_->deliver = std::move(deliver);
}

QuestionLanes::~QuestionLanes() {
    Close();
}

void QuestionLanes::Ask(std::vector<FolderQuestion> questions) {
    std::lock_guard lock(state_->m);
    if (state_->closed) return;
    for (FolderQuestion& q : questions) {
        const std::string lane = q.lane;
        state_->waiting[lane].push_back(std::move(q));
        if (state_->running[lane]) continue;
        state_->running[lane] = true;
        ++state_->busy;
        std::thread(&QuestionLanes::Work, state_, lane).detach();
    }
}

void QuestionLanes::SetRound(std::uint64_t round) {
    state_->round.store(round);
}

void QuestionLanes::DropLane(const std::string& lane) {
    std::lock_guard lock(state_->m);
    if (auto it = state_->waiting.find(lane); it != state_->waiting.end()) it->second.clear();
}

void QuestionLanes::Work(const std::shared_ptr<State>& state, std::string lane) {
    for (;;) {
        FolderQuestion q;
        {
            std::lock_guard lock(state->m);
            auto& queue = state->waiting[lane];
            if (state->closed || queue.empty()) {
                state->waiting.erase(lane);
                state->running.erase(lane);
                --state->busy;
                state->idle.notify_all();
                return;
            }
            q = std::move(queue.front());
            queue.pop_front();
        }
        if (q.round < state->round.load()) continue;
        FolderAnswer answer = FolderAnswer::To(q, *state->lister);
        std::lock_guard lock(state->deliverLock);
        if (state->deliver) state->deliver(std::move(answer));
    }
}

void QuestionLanes::Close(std::chrono::milliseconds limit) {
    {
        std::unique_lock lock(state_->m);
        if (state_->closed) return;  // delivery already stopped; no second wait
        state_->closed = true;
        for (auto& [lane, queue] : state_->waiting)
            queue.clear();
        state_->idle.wait_for(lock, limit, [&] { return state_->busy == 0; });
    }
    std::lock_guard lock(state_->deliverLock);
    state_->deliver = nullptr;
}

int QuestionLanes::Busy() const {
    std::lock_guard lock(state_->m);
    return state_->busy;
}

}  // namespace lumivex
