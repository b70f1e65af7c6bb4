#include "app/ChancesControl.h"

#include <utility>

#include "app/BoardInput.h"
#include "app/Mesa.h"
#include "app/RecorderControl.h"
#include "app/Sentences.h"

namespace zorva {
namespace {

constexpr std::chrono::milliseconds untilStill{30};
constexpr std::uint64_t playOutsForPage = 20'000, playOutsForCards = 2'000;

}  // namespace

ChancesControl::ChancesControl(const GameState& state, const Settings& settings,
                               const RecorderState& recorder, RecorderControl& recorderControl,
                               BoardInput& input, Mesa& mesa)
    : state_(state),
      settings_(settings),
      recorder_(recorder),
      recorderControl_(recorderControl),
      input_(input),
      mesa_(mesa) {
    still_.setSingleShot(true);
    still_.setInterval(untilStill);
    still_.callOnTimeout([this] { TellNews(); });
    analyst_.PositionTold = [this](const PositionReport& report) {
        TellWhenStill([this, report] { Show(report); });
    };
    analyst_.GameTold = [this](const GameReport& report) {
        TellWhenStill([this, report] {
            if (window_) window_->Show(report);
        });
    };
}

// Its window would call back when the board deletes it.
ChancesControl::~ChancesControl() {
    if (!window_) return;
    window_->disconnect();
    delete window_;
}

// ------------------------------------------------------------------------------------ the window

void ChancesControl::Toggle() {
    if (window_) {
        window_->close();
    } else {
        Open(page_);
    }
}

void ChancesControl::Open(Probabilidades::Page page) {
    window_ = new Probabilidades(&mesa_, mesa_.Shared(), page);
    window_->Turned = [this](Probabilidades::Page) { Refresh(); };
    window_->Pointed = [this](Short piece) { input_.PointAt(piece); };
    window_->GoTo = [this](int record) { recorderControl_.GoTo(ToShort(record)); };
    window_->CardsSwitched = [this](bool on) {
        isOnCards_ = on;
        if (!on) mesa_.Scene().ShowChances({});
        Refresh();
    };
    window_->ShowCardsSwitch(isOnCards_);
    QObject::connect(window_, &QDialog::finished, [this] { Closed(); });
    Refresh();
    if (window_->isModal()) {
        RunModal(*window_);
    } else {
        window_->show();
    }
}

void ChancesControl::Closed() {
    page_ = window_->CurrentPage();
    window_->deleteLater();
    window_ = nullptr;
    input_.PointAt(0);
    mesa_.activateWindow();
    Refresh();
}

// Of a modal window the loop runs below: it goes, and the player opens it again.
void ChancesControl::LayoutChanged() {
    if (!window_) return;
    const bool reopens = !window_->isModal();
    window_->reject();
    if (reopens)
        QTimer::singleShot(0, &mesa_, [this] {
            if (!window_) Open(page_);
        });
}

// ----------------------------------------------------------------------------- what is analysed

void ChancesControl::PositionReached(const GameState& position) {
    reached_ = position;
    subject_.reset();  // a restored game may have other moves with the same numbers
    Refresh();
}

const GameState* ChancesControl::LatestGame() const {
    if (state_.GameInProgress) return &state_;
    return reached_.MoveRecordCount > 0 ? &reached_ : nullptr;
}

bool ChancesControl::Shows(Probabilidades::Page page) const {
    return window_ && window_->CurrentPage() == page;
}

AnalysisTask ChancesControl::TaskNow() const {
    AnalysisTask task;
    task.game = reached_;
    task.settings = settingsOfGame_;
    task.onTape = recorder_.RecorderOn != No;
    task.shown = static_cast<std::size_t>((task.onTape ? state_ : reached_).MoveRecordCount - 1);
    if (state_.WaitingForMove && state_.GameInProgress && !task.onTape)
        task.live = engine::Moment(state_);
    const bool showsPosition = Shows(Probabilidades::Page::Now);
    task.ofPosition = showsPosition ? playOutsForPage : isOnCards_ ? playOutsForCards : 0;
    task.ofGame = Shows(Probabilidades::Page::Game);
    return task;
}

ChancesControl::Subject ChancesControl::SubjectOf(const AnalysisTask& task) const {
    return {task.shown,
            task.onTape,
            task.game.CurrentColour,
            task.game.SixesInRow,
            task.live ? ToShort(task.live->due.count) : Short{0},
            task.ofPosition,
            task.ofGame,
            Shows(Probabilidades::Page::Dice),
            task.settings};
}

void ChancesControl::Refresh() {
    const bool isWanted = window_ || isOnCards_;
    if (!isWanted || reached_.MoveRecordCount < 1) {
        analyst_.Rest();
        news_ = nullptr;
        subject_.reset();
        return;
    }
    if (state_.GameInProgress) settingsOfGame_ = settings_;
    AnalysisTask task = TaskNow();
    const Subject subject = SubjectOf(task);
    if (subject == subject_) return;
    subject_ = subject;
    news_ = nullptr;
    if (subject.ofDice) ShowDice(task);
    if (task.ofPosition != 0 || task.ofGame) {
        analyst_.Analyse(std::move(task));
    } else {
        analyst_.Rest();
    }
}

// The page of the dice only counts: there is nothing to compute.
void ChancesControl::ShowDice(const AnalysisTask& task) {
    GameReport report;
    report.game = task.game;
    report.settings = task.settings;
    report.shown = task.shown;
    report.progress = 1;
    window_->Show(report);
}

// A page takes longer to paint than a frame of a walk may: what is new waits until the walk is
// over.
void ChancesControl::TellWhenStill(std::function<void()> news) {
    news_ = std::move(news);
    if (!still_.isActive()) TellNews();
}

void ChancesControl::TellNews() {
    if (mesa_.Waits().IsWaiting() && mesa_.Scene().HasMotion()) {
        still_.start();
    } else if (news_) {
        std::exchange(news_, nullptr)();
    }
}

// The cards show what the page shows, whole numbers, so that they rarely change while it sharpens. Those
// of a won game tell how it has ended.
void ChancesControl::Show(const PositionReport& report) {
    if (window_) window_->Show(report);
    if (!isOnCards_) return;
    PerColour<QString> chances;
    for (Colour colour = 1; colour <= ColourCount && !report.isWon; ++colour)
        chances[colour] = "gana " + ChanceText(report.chances[engine::SeatOf(colour)]);
    mesa_.Scene().ShowChances(chances);
}

}  // namespace zorva
