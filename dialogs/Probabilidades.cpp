#include "dialogs/Probabilidades.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "dialogs/DicePage.h"
#include "dialogs/DrawnButton.h"
#include "dialogs/GamePage.h"
#include "dialogs/Geometry.h"
#include "dialogs/NowPage.h"
#include "dialogs/PictureButton.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr QSize windowSize(600, 464);
constexpr QRectF heading(0, 0, 600, 40);
constexpr Box paper{17, 66, 566, 348};
constexpr Box cardsSwitch{17, 419, 230, 30};
constexpr QRectF progressLine(262, 432, 200, 4);
constexpr Box leaveButton{487, 419, 96, 30};
constexpr Short tabWidth = 150, tabHeight = 26;
constexpr int aroundWindow = 8;
constexpr int besideBoard = 20;  // with its frame

const char* const pageNames[] = {"Ahora", "La partida", "Los dados"};

}  // namespace

/// The tab of one page: a piece of the same paper that stands out above it.
class PageTab : public DrawnButton {
public:
    PageTab(QWidget* window, const Services& services, int page)
        : DrawnButton(window, services, QStringLiteral("Bot_Pagina_%1").arg(page + 1), pageNames[page]) {
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        LayoutPainter painter(this, TheServices());
        const QRectF area = LayoutArea(*this, TheServices());
        const QColor behind = underMouse() ? QColor(0xdc, 0xc4, 0x96) : QColor(0xc4, 0xa8, 0x76);
        painter.setPen(QPen(palette::DarkWood, 0.8));
        painter.setBrush(isChecked() ? palette::Paper : behind);
        painter.drawRoundedRect(area.adjusted(0.5, isChecked() ? 0.5 : 3, -0.5, 8), 6, 6);
        painter.setPen(palette::Ink);
        DrawLine(painter, area.adjusted(8, isChecked() ? 0 : 2, -8, 0), text(),
                 {14, isChecked() ? QFont::Bold : QFont::Normal}, Qt::AlignHCenter);
        if (hasFocus()) decoration::DrawFocus(painter, area.adjusted(3, 4, -3, -2), 5);
    }
};

/// A switch with a lamp, its text beside it.
class SwitchButton : public DrawnButton {
public:
    SwitchButton(QWidget* window, const Services& services, const char* name, const QString& text)
        : DrawnButton(window, services, name, text) {
        setCheckable(true);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        LayoutPainter painter(this, TheServices());
        const QRectF area = LayoutArea(*this, TheServices());
        decoration::DrawPixmap(painter, isChecked() ? "personal_switch_on" : "personal_switch_off",
                               QRectF(2, (area.height() - 21) / 2, 30, 21), TheServices());
        painter.setPen(palette::Light);
        DrawLine(painter, area.adjusted(40, 0, -4, 0), text(), {13});
        if (hasFocus()) decoration::DrawFocus(painter, area.adjusted(1, 1, -1, -1), 6);
    }
};

Probabilidades::Probabilidades(QWidget* parent, const Services& services, Page page)
    : BoardDialog(parent, services, "Probabilidades", "Probabilidades", windowSize), page_(page) {
    setModal(!FitsBesideBoard(services.layout));
    AddPages();
    AddControls();
    TurnTo(static_cast<int>(page));
}

bool Probabilidades::FitsBesideBoard(const Layout& layout) {
    const int boardRight = layout.BoardExtent - layout.Margin + besideBoard;
    return layout.SizeClass == 3 && layout.DeviceTop == 0 &&
           layout.ScreenWidth - aroundWindow - windowSize.width() >= boardRight;
}

// ------------------------------------------------------------------------------------- the parts

void Probabilidades::AddPages() {
    now_ = new NowPage(this, TheServices());
    game_ = new GamePage(this, TheServices());
    dice_ = new DicePage(this, TheServices());
    for (QWidget* page :
         {static_cast<QWidget*>(now_), static_cast<QWidget*>(game_), static_cast<QWidget*>(dice_)}) {
        Place(page, paper);
    }
    now_->Pointed = [this](Short piece) {
        if (Pointed) Pointed(piece);
    };
    game_->GoTo = [this](int record) {
        if (GoTo) GoTo(record);
    };
    for (int page = 0; page < PageCount; ++page) {
        tabs_[page] = new PageTab(this, TheServices(), page);
        Place(tabs_[page], {ToShort(paper.x + 8 + page * (tabWidth + 4)), ToShort(paper.y - tabHeight),
                            tabWidth, tabHeight});
        connect(tabs_[page], &QAbstractButton::clicked, this, [this, page] { TurnTo(page); });
    }
}

void Probabilidades::AddControls() {
    cards_ = new SwitchButton(this, TheServices(), "Bot_Tarjetas", "Mostrar en las tarjetas");
    Place(cards_, cardsSwitch);
    cards_->setVisible(TheServices().layout.HasCards());
    connect(cards_, &QAbstractButton::toggled, this, [this](bool on) {
        TheServices().Say(on ? "Activado." : "Desactivado.");
        if (CardsSwitched) CardsSwitched(on);
    });
    auto* leave = new PictureButton(this, TheServices(), "Pic_Salir", "accept", "Aceptar");
    Place(leave, leaveButton);
    connect(leave, &QAbstractButton::clicked, this, [this] { Leave(); });
}

void Probabilidades::ShowCardsSwitch(bool on) {
    const QSignalBlocker quiet(cards_);
    cards_->setChecked(on);
}

// ------------------------------------------------------------------------------------- the pages

QWidget* Probabilidades::PageWidget(Page page) const {
    if (page == Page::Now) return now_;
    return page == Page::Game ? static_cast<QWidget*>(game_) : dice_;
}

void Probabilidades::TurnTo(int page) {
    page_ = static_cast<Page>(page);
    tabs_[page]->setChecked(true);
    isPageNew_ = true;
    ShowProgress(0);
    for (int other = 0; other < PageCount; ++other)
        PageWidget(static_cast<Page>(other))->setVisible(other == page);
    PageWidget(page_)->setFocus();
    if (Turned) Turned(page_);
}

// The first report of a page is said by itself; what comes later only sharpens it.
void Probabilidades::SayPage() {
    if (!isPageNew_ || !isActiveWindow()) return;
    isPageNew_ = false;
    const QWidget* page = PageWidget(page_);
    TheServices().Say(page->accessibleName() + ". " + page->accessibleDescription());
}

void Probabilidades::ShowProgress(double progress) {
    progress_ = progress;
    update(QRectF(progressLine.topLeft() * TheServices().ToLogical(1),
                  progressLine.size() * TheServices().ToLogical(1))
               .toAlignedRect()
               .adjusted(-1, -1, 1, 1));
}

void Probabilidades::Show(const PositionReport& report) {
    now_->Show(report);
    ShowProgress(report.progress);
    SayPage();
}

void Probabilidades::Show(const GameReport& report) {
    if (page_ == Page::Game) game_->Show(report);
    if (page_ == Page::Dice) dice_->Show(report);
    ShowProgress(report.progress);
    SayPage();
}

// ----------------------------------------------------------------------------------- the window

void Probabilidades::DrawGround(QPainter& painter) {
    BoardDialog::DrawGround(painter);
    painter.setPen(palette::Light);
    DrawLine(painter, heading.adjusted(20, 8, -20, -4), windowTitle(), Headline(20), Qt::AlignHCenter);
    decoration::DrawSunkenPaper(painter, ToRect(paper));
    if (progress_ >= 1) return;
    painter.fillRect(progressLine, palette::DarkWood);
    QRectF done = progressLine;
    done.setWidth(progressLine.width() * progress_);
    painter.fillRect(done, palette::Brass);
}

// The pages become more precise ten times a second; below them is nothing but paper.
void Probabilidades::paintEvent(QPaintEvent* event) {
    const double unit = TheServices().ToLogical(1);
    const QRectF sheet(ToRect(paper).topLeft() * unit, ToRect(paper).size() * unit);
    if (!sheet.toAlignedRect().contains(event->rect())) return BoardDialog::paintEvent(event);
    LayoutPainter painter(this, TheServices());
    decoration::DrawSunkenPaper(painter, ToRect(paper));
}

// A moment later, because screen readers fall silent for the focus, which comes after this event.
bool Probabilidades::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        isPageNew_ = true;
        if (!PageWidget(page_)->accessibleDescription().isEmpty())
            QTimer::singleShot(0, this, [this] { SayPage(); });
    }
    return BoardDialog::event(event);
}

void Probabilidades::KeyPressed(QKeyEvent* event) {
    const int key = event->key();
    const int page = static_cast<int>(page_);
    if (key == Qt::Key_F7) {
        Leave();
    } else if (key == Qt::Key_F8) {
        isPageNew_ = true;
        SayPage();
    } else if (key >= Qt::Key_1 && key <= Qt::Key_3) {
        TurnTo(key - Qt::Key_1);
    } else if (key == Qt::Key_Right || key == Qt::Key_Tab || key == Qt::Key_PageDown) {
        TurnTo((page + 1) % PageCount);
    } else if (key == Qt::Key_Left || key == Qt::Key_Backtab || key == Qt::Key_PageUp) {
        TurnTo((page + PageCount - 1) % PageCount);
    } else {
        BoardDialog::KeyPressed(event);
    }
}

void Probabilidades::Leave() {
    TheServices().PlaySound(Sound::Accept);
    accept();
}

// In the lower right corner, below what the game says and its menu.
QPoint Probabilidades::CentreOver(const QRect& board) const {
    if (isModal()) return BoardDialog::CentreOver(board);
    const int around = qRound(TheServices().ToLogical(aroundWindow));
    return board.bottomRight() - QPoint(around + width() / 2, around + height() / 2);
}

// ----------------------------------------------------------------------------------- by its heading

void Probabilidades::mousePressEvent(QMouseEvent* event) {
    const bool isHeading = event->position().y() < TheServices().ToLogical(heading.height());
    isDragged_ = !isModal() && isHeading && event->button() == Qt::LeftButton;
    grip_ = event->position().toPoint();
}

void Probabilidades::mouseMoveEvent(QMouseEvent* event) {
    if (!isDragged_) return;
    const QRect room = screen()->geometry();
    const QPoint to = event->globalPosition().toPoint() - grip_;
    move(qBound(room.left(), to.x(), room.right() + 1 - width()),
         qBound(room.top(), to.y(), room.bottom() + 1 - height()));
}

void Probabilidades::mouseReleaseEvent(QMouseEvent*) {
    isDragged_ = false;
}

}  // namespace zorva
