// How long the frames of a walk and of the winner's confetti take on a real screen: from the moment a
// frame begins until its image has been handed to the window system. Start it on a screen of the size in
// question:
//
//     xvfb-run -s "-screen 0 3840x2160x24" zorva-frames [walks]

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "app/BoardScene.h"
#include "app/Mesa.h"
#include "core/Board.h"

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
    walk.Win(ofConfetti);
    std::printf("%dx%d\n", walk.Pixels().width(), walk.Pixels().height());
    Print("a walk", frames);
    Print("confetti", ofConfetti);
    return 0;
}
