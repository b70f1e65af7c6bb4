#pragma once

#include <QAbstractButton>
#include <functional>
#include <vector>

#include "app/Services.h"
#include "dialogs/Options.h"

namespace zorva {

/// What the keyboard and a screen reader see of an option: it takes the focus, Space and Enter flip
/// it. The mouse goes through it to the page.
class OptionStop : public QAbstractButton {
public:
    /// `size` is that of the letters in which the page draws the answer.
    OptionStop(QWidget* page, const Services& services, const OptionPlace& place, double size);

    /// The option's answer has become this one.
    void ShowAnswer(Short value);

protected:
    void nextCheckState() override {}  // what was asked for may be refused
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Toggled(bool checked);

    const Services& services_;
    const Option option_;
    const double size_;
    bool shown_ = false;  // checked, by the answer it was told to show
};

/// A page with options. It draws them, finds out which one was clicked, and hands on that it was.
class OptionPage : public QWidget {
public:
    /// The page covers its window. The settings are those shown.
    OptionPage(QWidget* window, const Services& services, const char* name, const Settings& settings,
               const std::vector<OptionPlace>& places, double letterSize);

    /// An option was clicked or chosen by key.
    std::function<void(Option option, Colour player)> Chosen;

    /// What takes the focus for an option of the page.
    QWidget* StopOf(Option option, Colour player = 0) const;

    /// Shows what the settings hold now.
    virtual void ShowSettings();

protected:
    const Services& TheServices() const { return services_; }
    const Settings& Shown() const { return settings_; }
    const std::vector<OptionPlace>& Places() const { return places_; }

    /// Whether an option is on the page at present.
    virtual bool IsShown(const OptionPlace&) const { return true; }
    /// The option whose selector lies under the point; null when there is none.
    virtual const OptionPlace* OptionAt(Point point) const;
    /// Draws what stands around the options, in pixels of the layout.
    virtual void DrawPage(QPainter& painter) = 0;

    /// Draws the page's name over its sheets, its letters spaced out by blanks.
    void DrawHeading(QPainter& painter, const QString& heading) const;
    /// Draws an option with its answer.
    void DrawOption(QPainter& painter, const OptionPlace& place) const;
    virtual void DrawOptions(QPainter& painter);
    /// Draws a part of the page again.
    void Redraw(const Box& box);
    /// Puts a control there.
    void Place(QWidget* control, const Box& box) const;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ShowCursorAt(QPointF position);
    Short AnswerOf(const OptionPlace& place) const;

    const Services& services_;
    const Settings& settings_;
    const std::vector<OptionPlace> places_;
    const double letterSize_;
    std::vector<OptionStop*> stops_;  // one for each place, owned by the page
};

}  // namespace zorva
