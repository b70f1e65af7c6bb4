// How long the frames of a walk and of the winner's confetti take on a real screen: from the moment a
// frame begins until its image has been handed to the window system. Start it on a screen of the size in
// question:
//
//     xvfb-run -s "-screen 0 3840x2160x24" zorva-frames [walks]
//
// The piece also walks at its usual speed, alone and beside the window of chances, which computes all
// the time: how far apart do the frames come, at most?

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "app/BoardInput.h"
#include "app/BoardScene.h"
#include "app/ChancesControl.h"
#include "app/Mesa.h"
#include "app/Pacer.h"
#include "app/RecorderControl.h"
#include "core/Board.h"
#include "core/SilentOutside.h"

namespace {

using namespace zorva;

constexpr int framesOfAStep = 5;  // a step takes 80 ms at speed 50

/// The window of chances at the start of a game, which is computed anew at each step of a walk.
class Chances {
public:
    Chances(GameState& state, const Settings& settings, Mesa& mesa)
        : state_(state),
          recorderControl_({state, settings, outside_}, recorder_, mesa),
          input_(state, settings, recorder_, mesa),
          control_(state, settings, recorder_, recorderControl_, input_, mesa) {
        control_.Toggle();
    }
    void Begin() {
        GameState position = state_;
        position.CurrentColour = position.MoveRecordCount = 1;
        control_.PositionReached(position);
    }

private:
    GameState& state_;
    RecorderState recorder_;
    SilentOutside outside_;
    RecorderControl recorderControl_;
    BoardInput input_;
    ChancesControl control_;
};

/// A board with every piece on it, of which one walks round the ring.
class Walk {
public:
    Walk() : mesa_(state_, settings_) {
        mesa_.setGeometry(QGuiApplication::primaryScreen()->geometry());
        mesa_.showFullScreen();
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                mesa_.Scene().PutDown(CodeOf(colour, piece));
                mesa_.Scene().ShowStep(1);
            }
        }
        mesa_.Scene().ShowTurn(1);
        QApplication::processEvents();
    }

    void Go(int squares, std::vector<double>& milliseconds) {
        const PieceCode piece = CodeOf(1, 1);
        BoardScene& scene = mesa_.Scene();
        scene.Lift(piece);
        Square square = ExitSquare[1];
        scene.StartStep(piece, 0, square);
        scene.ShowStep(1);
        for (int step = 0; step < squares; ++step) {
            const Square next = AdvanceSquare(square, 1, 1);
            scene.StartStep(piece, square, next);
            for (int frame = 1; frame <= framesOfAStep; ++frame) {
                QElapsedTimer clock;
                clock.start();
                scene.ShowStep(static_cast<double>(frame) / framesOfAStep);
                QApplication::sendPostedEvents();  // the window paints what has changed
                milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
                QApplication::processEvents();
            }
            square = next;
        }
        scene.PutDown(piece);
    }

    /// Only the passes of the event loop that move the confetti count.
    void Win(std::vector<double>& milliseconds) {
        settings_.Speed = 0;
        mesa_.Scene().ShowWinner(1);
        const BoardView::Confetti& confetti = mesa_.Scene().View().confetti;
        QPointF before;
        do {
            QElapsedTimer clock;
            clock.start();
            QApplication::processEvents();
            QApplication::sendPostedEvents();  // the window paints what has changed
            const QPointF now = confetti.flakes.empty() ? QPointF() : confetti.flakes[0].at;
            if (std::exchange(before, now) != now)
                milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        } while (!before.isNull());
    }

    /// The longest time between two frames, in milliseconds, while the piece walks at speed 50.
    double LongestGap(int squares, bool besideChances) {
        std::optional<Chances> chances;
        if (besideChances) chances.emplace(state_, settings_, mesa_);
        BoardScene& scene = mesa_.Scene();
        Square square = ExitSquare[1];
        scene.Lift(CodeOf(1, 1));
        QElapsedTimer clock;
        clock.start();
        double longest = 0;
        for (int step = 0; step < squares; ++step) {
            const Square next = AdvanceSquare(square, 1, 1);
            scene.StartStep(CodeOf(1, 1), square, next);
            if (chances) chances->Begin();
            mesa_.Waits().Wait(80, [&](double progress) {
                scene.ShowStep(progress);
                const double gap = static_cast<double>(clock.nsecsElapsed()) / 1e6;
                if (step > 1) longest = std::max(longest, gap);
                clock.start();
            });
            square = next;
        }
        scene.PutDown(CodeOf(1, 1));
        return longest;
    }

    QSize Pixels() const { return mesa_.size() * mesa_.devicePixelRatioF(); }

private:
    GameState state_;
    Settings settings_;
    Mesa mesa_;
};

void Print(const char* what, std::vector<double>& frames) {
    std::sort(frames.begin(), frames.end());
    const auto at = [&](double part) {
        return frames[static_cast<std::size_t>(part * static_cast<double>(frames.size() - 1))];
    };
    std::printf("%zu frames of %s: median %.2f ms, 99th percentile %.2f ms, longest %.2f ms\n",
                frames.size(), what, at(0.5), at(0.99), at(1));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int walks = argc > 1 ? std::atoi(argv[1]) : 20;
    Walk walk;
    std::vector<double> frames, ofConfetti;
    for (int count = 0; count < walks; ++count) walk.Go(60, frames);
    const double alone = walk.LongestGap(60, false), beside = walk.LongestGap(60, true);
    walk.Win(ofConfetti);
    std::printf("%dx%d\n", walk.Pixels().width(), walk.Pixels().height());
    Print("a walk", frames);
    Print("confetti", ofConfetti);
    std::printf("the frames of a walk come at most %.1f ms apart, beside the chances %.1f ms\n", alone,
                beside);
    return 0;
}
