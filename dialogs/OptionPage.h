#pragma once

#include <QAbstractButton>
#include <functional>
#include <vector>

#include "app/Services.h"
#include "dialogs/Options.h"

namespace zorva {

/// What the keyboard and screen readers find of an option: a check box, checked for the first answer,
/// with the answer's text as its description. Space and Enter flip it. It draws only the mark of the
/// focus; the page draws the option and gets its clicks.
class OptionStop : public QAbstractButton {
public:
    /// `fontSize` is that of the answer on the page, in layout pixels.
    OptionStop(QWidget* page, const Services& services, const OptionPlace& place, double fontSize);

    /// Shows the first (1) or the second (2) answer.
    void ShowAnswer(Short value);

protected:
    // Not checked by the click itself: the change may be refused. ShowAnswer follows when it was not.
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ClickIfToggled();

    const Services& services_;
    const Option option_;
    const double fontSize_;
    bool shown_ = false;  // whether it is checked, by the last answer shown
};

/// A page of the settings window. It draws its options and reports which of them the player has chosen;
/// it changes no setting itself.
class OptionPage : public QWidget {
public:
    /// The page covers its window. `settings` are the settings shown; `places` says where each option
    /// is, `fontSize` is in layout pixels. The services and the settings must outlive the page.
    OptionPage(QWidget* window, const Services& services, const char* name, const Settings& settings,
               const std::vector<OptionPlace>& places, double fontSize);

    /// Called when the player has clicked on an option or flipped it by key. `player` is 0 for an option
    /// that is common to all.
    std::function<void(Option option, Colour player)> Chosen;

    /// The widget that takes the focus for an option. An option that is not on this page is fatal.
    QWidget* StopOf(Option option, Colour player = 0) const;

    /// Shows what the settings hold now. To be called after each change of them.
    virtual void ShowSettings();

protected:
    const Services& TheServices() const { return services_; }
    const Settings& Shown() const { return settings_; }
    const std::vector<OptionPlace>& Places() const { return places_; }

    /// Whether an option is on the page at present: some depend on the answers to others.
    virtual bool IsShown(const OptionPlace&) const { return true; }
    /// The option whose selector lies under the point, in layout pixels; null when there is none.
    virtual const OptionPlace* OptionAt(Point point) const;
    /// Draws everything around the options. The painter counts in layout pixels.
    virtual void DrawPage(QPainter& painter) = 0;

    /// Draws the page's heading above its sheets, in the middle of the window. Its blanks are 6 layout
    /// pixels wide in every font: they space its letters out.
    void DrawHeading(QPainter& painter, const QString& heading) const;
    /// Draws one option: question, selector and answer.
    void DrawOption(QPainter& painter, const OptionPlace& place) const;
    /// Draws all options that are shown.
    virtual void DrawOptions(QPainter& painter);
    /// Repaints a part of the page, in layout pixels, at the next paint event.
    void Redraw(const Box& box);
    /// Moves a child widget to that box of the page, in layout pixels.
    void Place(QWidget* control, const Box& box);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool eventFilter(QObject* control, QEvent* event) override;

private:
    void ShowCursorAt(QPointF position);
    void Light(const OptionPlace* place);
    Short AnswerOf(const OptionPlace& place) const;

    const Services& services_;
    const Settings& settings_;
    const std::vector<OptionPlace> places_;
    const double fontSize_;
    const OptionPlace* lit_ = nullptr;  // the one whose selector the cursor is over
    std::vector<OptionStop*> stops_;    // one for each place, in the same order; owned by the page
};

}  // namespace zorva
