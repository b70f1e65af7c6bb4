// How long the frames of a walk and of the winner's confetti take on a real screen: from the moment a
// frame begins until its image has been handed to the window system. Start it on a screen of the size in
// question:
//
//     xvfb-run -s "-screen 0 3840x2160x24" zorva-frames [walks] [chances]
//
// At the end the piece walks at its usual speed: how far apart do the frames come, at most? With the
// word "chances" the window of chances lies beside the board and computes all the time.

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Analyst.h"
#include "app/BoardScene.h"
#include "app/Mesa.h"
#include "app/Pacer.h"
#include "core/Board.h"
#include "dialogs/Probabilidades.h"

namespace {

using namespace zorva;

constexpr int framesOfAStep = 5;  // a step takes 80 ms at speed 50

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
            const QPointF now = confetti.flakes.empty() ? QPointF() : confetti.flakes[0].at;
            if (std::exchange(before, now) != now)
                milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        } while (!before.isNull());
    }

    /// The longest time between two frames, in milliseconds, while the piece walks at speed 50.
    double LongestGap(int squares) {
        BoardScene& scene = mesa_.Scene();
        Square square = ExitSquare[1];
        scene.Lift(CodeOf(1, 1));
        QElapsedTimer clock;
        clock.start();
        double longest = 0;
        for (int step = 0; step < squares; ++step) {
            const Square next = AdvanceSquare(square, 1, 1);
            scene.StartStep(CodeOf(1, 1), square, next);
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

    Mesa& Window() { return mesa_; }
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

/// The window of chances, which sharpens those of the start of a game without end.
class Chances {
public:
    explicit Chances(Mesa& mesa) : window_(&mesa, mesa.Shared(), Probabilidades::Page::Now) {
        analyst_.PositionTold = [this](const PositionReport& report) {
            window_.Show(report);
            ++reports_;
        };
        AnalysisTask task;
        task.live.emplace(engine::Position(GameState()), 0);
        task.ofPosition = 1'000'000'000;
        window_.show();
        analyst_.Analyse(std::move(task));
    }
    int Reports() const { return reports_; }

private:
    Probabilidades window_;
    Analyst analyst_;
    int reports_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int walks = argc > 1 ? std::atoi(argv[1]) : 20;
    Walk walk;
    std::optional<Chances> chances;
    if (argc > 2 && std::string_view(argv[2]) == "chances") chances.emplace(walk.Window());
    std::vector<double> frames, ofConfetti;
    for (int count = 0; count < walks; ++count) walk.Go(60, frames);
    const double gap = walk.LongestGap(60);
    walk.Win(ofConfetti);
    std::printf("%dx%d\n", walk.Pixels().width(), walk.Pixels().height());
    Print("a walk", frames);
    Print("confetti", ofConfetti);
    std::printf("the frames of a walk come at most %.1f ms apart", gap);
    if (chances) std::printf(" beside the chances, which were told %d times", chances->Reports());
    std::printf("\n");
    return 0;
}
