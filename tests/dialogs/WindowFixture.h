#pragma once

#include <gtest/gtest.h>

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/Services.h"

// Let failures show texts as texts.
inline std::ostream& operator<<(std::ostream& out, const QString& text) {
    return out << text.toStdString();
}
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace zorva {

/// Sizes of screens that every window must be right on, from the smallest to the largest.
inline constexpr QSize ScreenSizes[] = {{640, 480}, {800, 600}, {1024, 600}, {1366, 768}, {3840, 2160}};

/// A board that does nothing, with services that note what the windows ask of them.
class WindowFixture : public testing::Test {
protected:
    WindowFixture() { UseScreen({1024, 768}); }

    /// Lays everything out for a screen of that size. 1024x768 has one device pixel per pixel.
    void UseScreen(QSize size);

    /// The control of that name; a test that names one that is not there fails.
    static QWidget* Control(QWidget& window, const QString& name);
    template <typename Kind>
    static Kind* Control(QWidget& window, const QString& name) {
        return dynamic_cast<Kind*>(Control(window, name));
    }

    /// Presses and releases the mouse at a point of a control, in layout pixels.
    void ClickAt(QWidget* control, QPointF point) const;
    QPoint InLogical(QPointF point) const;

    /// Shows a window and waits until it is there.
    static void Show(QWidget& window);

    Artwork artwork;
    Cursors cursors{artwork};
    std::vector<Sound> sounds;
    std::vector<Short> pauses;
    QStringList narrated;  // what a player hears through a screen reader
    QStringList readOver;  // the windows over which the manual was opened
    std::unique_ptr<Services> services;
    QWidget board;
};

/// Plays the person before the modal windows that open from now on: calls the action with each one, and
/// closes it as the window manager does if the action leaves it open.
class Person {
public:
    explicit Person(std::function<void(QWidget& window)> action);

    /// Whether the last of them was still open after the action.
    bool LeftOpen() const { return leftOpen_; }

private:
    void Act();

    std::function<void(QWidget& window)> action_;
    const QWidget* const below_;  // open already
    QTimer timer_;
    bool leftOpen_ = false;
    bool busy_ = false;
};

/// Whether any pixel of that part of a picture is dark enough to be writing.
bool HasInk(const QImage& picture, const QRect& part);

}  // namespace zorva
