#pragma once

#include <array>
#include <functional>

#include "dialogs/BoardDialog.h"
#include "dialogs/GameReport.h"
#include "dialogs/PositionReport.h"

namespace zorva {

class DicePage;
class GamePage;
class NowPage;
class PageTab;
class SwitchButton;

/// The window that tells what the position, the game and its dice were worth, on three pages. It only
/// shows reports; who opened it makes them for the page that is shown.
///
/// Where there is room for it right of the board it is not modal, and the game goes on beside it: there
/// it can be moved by its heading. Elsewhere it is modal, as all windows over the board.
class Probabilidades : public BoardDialog {
public:
    enum class Page { Now, Game, Dice };
    static constexpr int PageCount = 3;

    /// The services must outlive the window.
    Probabilidades(QWidget* parent, const Services& services, Page page);

    /// Whether the window lies beside the board there and not over it.
    static bool FitsBesideBoard(const Layout& layout);

    /// Called when another page is shown.
    std::function<void(Page page)> Turned;
    /// Called when the player points at a move on the page about the position, with its piece 1..4; with
    /// 0 when he does so no more.
    std::function<void(Short piece)> Pointed;
    /// Called when the player has chosen a record in the plot of the game.
    std::function<void(int record)> GoTo;
    /// Called when the player has switched the line of chances on the cards on or off.
    std::function<void(bool on)> CardsSwitched;

    Page CurrentPage() const { return page_; }
    void Show(const PositionReport& report);
    /// For the page about the game, or the one about its dice, whichever is shown.
    void Show(const GameReport& report);
    /// Shows the state of the switch for the cards; without cards it is hidden.
    void ShowCardsSwitch(bool on);

protected:
    bool event(QEvent* event) override;
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;
    QPoint CentreOver(const QRect& board) const override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void AddPages();
    void AddControls();
    void TurnTo(int page);
    QWidget* PageWidget(Page page) const;
    void SayPage();
    void ShowProgress(double progress);

    Page page_;
    QPoint grip_;  // where the mouse holds the heading
    bool isDragged_ = false;
    bool isPageNew_ = true;  // what it shows has not been said yet
    double progress_ = 0;
    // All owned by the window:
    std::array<PageTab*, PageCount> tabs_{};
    NowPage* now_ = nullptr;
    GamePage* game_ = nullptr;
    DicePage* dice_ = nullptr;
    SwitchButton* cards_ = nullptr;
};

}  // namespace zorva
