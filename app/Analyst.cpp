#include "app/Analyst.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <utility>

namespace zorva {
namespace {

constexpr std::chrono::milliseconds betweenReports{100};

unsigned ThreadsBesideTheGame() {
    return std::max(2u, std::thread::hardware_concurrency()) - 1;
}

engine::Moment ShownMoment(const AnalysisTask& task) {
    if (task.live) return *task.live;
    const auto last = static_cast<std::size_t>(task.game.MoveRecordCount - 1);
    if (task.shown >= last) return engine::Moment(task.game);
    return engine::GameAnalysis(task.game, task.settings, ChancesSeed).MomentAfter(task.shown);
}

}  // namespace

Analyst::Analyst(std::uint64_t ofGame) : threads_(ThreadsBesideTheGame()), game_(ofGame) {}

Analyst::~Analyst() {
    Rest();
}

void Analyst::Analyse(AnalysisTask task) {
    GiveTask(std::move(task));
    if (!thread_.joinable()) thread_ = std::jthread([this](const std::stop_token& end) { Run(end); });
    given_.notify_one();
}

void Analyst::Rest() {
    GiveTask({});
}

bool Analyst::IsAtWork() const {
    const std::lock_guard lock(mutex_);
    return isAtWork_ || next_;
}

void Analyst::GiveTask(std::optional<AnalysisTask> task) {
    const std::lock_guard lock(mutex_);
    current_.request_stop();
    current_ = {};
    next_ = std::move(task);
    positionReport_.reset();
    gameReport_.reset();
}

bool Analyst::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    std::unique_lock lock(mutex_);
    const auto position = std::exchange(positionReport_, {});
    const auto game = std::exchange(gameReport_, {});
    lock.unlock();
    if (position && PositionTold) PositionTold(*position);
    if (game && GameTold) GameTold(*game);
    return true;
}

// ----------------------------------------------------------------------------------- in the thread

void Analyst::Run(const std::stop_token& end) {
    std::unique_lock lock(mutex_);
    while (given_.wait(lock, end, [this] { return next_.has_value(); })) {
        const AnalysisTask task = *std::exchange(next_, {});
        const std::stop_token stop = current_.get_token();
        isAtWork_ = true;
        lock.unlock();
        AnalysePosition(task, stop);
        AnalyseGame(task, stop);
        lock.lock();
        isAtWork_ = false;
    }
}

void Analyst::AnalysePosition(const AnalysisTask& task, const std::stop_token& stop) {
    if (task.ofPosition == 0 || stop.stop_requested()) return;
    PositionWork work(ShownMoment(task), task.settings, task.ofPosition);
    Sharpen(work, stop, [&] {
        PositionReport report = work.Report();
        report.record = ToShort(task.shown);
        report.onTape = task.onTape;
        Tell(positionReport_, std::move(report), stop);
    });
}

void Analyst::AnalyseGame(const AnalysisTask& task, const std::stop_token& stop) {
    if (!task.ofGame || stop.stop_requested()) return;
    game_.Follow(task.game, task.settings);
    Sharpen(game_, stop, [&] {
        GameReport report = game_.Report();
        report.shown = task.shown;
        Tell(gameReport_, std::move(report), stop);
    });
}

// Some steps are short: it tells ten times a second what they have come to.
template <typename Work, typename Report>
void Analyst::Sharpen(Work& work, const std::stop_token& stop, const Report& report) {
    auto told = std::chrono::steady_clock::time_point::min();
    while (!work.IsSharp() && !stop.stop_requested()) {
        work.Sharpen(threads_, stop);
        const auto now = std::chrono::steady_clock::now();
        if (work.IsSharp() || now < told + betweenReports) continue;
        report();
        told = now;
    }
    report();
}

template <typename Report>
void Analyst::Tell(std::optional<Report>& place, Report report, const std::stop_token& stop) {
    const std::lock_guard lock(mutex_);
    if (stop.stop_requested()) return;
    const bool isWaiting = positionReport_ || gameReport_;  // its event is on the way
    place = std::move(report);
    if (!isWaiting) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

}  // namespace zorva
