#include "app/BoardAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <memory>
#include <vector>

#include "app/BoardReading.h"
#include "app/Mesa.h"
#include "app/Pacer.h"
#include "app/PiecePlaces.h"
#include "core/Board.h"

namespace zorva {
namespace {

// A part of the board that is drawn and is no control of its own.
class BoardPart : public QAccessibleInterface {
public:
    explicit BoardPart(Mesa& mesa) : mesa_(mesa) {}

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&mesa_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::State state() const override { return {}; }

    QRect rect() const override {
        const QRectF area = Area();
        const double pixel = mesa_.Shared().ToLogical(1);
        const Layout& layout = mesa_.Shared().layout;
        const QPointF origin(layout.DeviceLeft / mesa_.Shared().devicePixelRatio,
                             layout.DeviceTop / mesa_.Shared().devicePixelRatio);
        const QRectF inWindow(origin + area.topLeft() * pixel, area.size() * pixel);
        return inWindow.toAlignedRect().translated(mesa_.mapToGlobal(QPoint()));
    }

protected:
    // In layout pixels.
    virtual QRectF Area() const = 0;

    QRectF AroundPoint(Point at, double side) const {
        return {at.x - side / 2, at.y - side / 2, side, side};
    }

    Mesa& mesa_;
};

// A part that does something when it is pressed.
class PressablePart : public BoardPart, public QAccessibleActionInterface {
public:
    using BoardPart::BoardPart;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) mesa_.Waits().AfterWait(&mesa_, [this] { Press(); });
    }

protected:
    virtual void Press() = 0;
    void ClickAt(Point at) {
        if (mesa_.BoardPressed) mesa_.BoardPressed(at, Qt::LeftButton);
        if (mesa_.BoardReleased) mesa_.BoardReleased(at, true);
    }
};

class DiePart : public PressablePart {
public:
    DiePart(Mesa& mesa, Colour colour) : PressablePart(mesa), colour_(colour) {}
    QAccessible::Role role() const override { return QAccessible::PushButton; }
    QString text(QAccessible::Text what) const override {
        const BoardView::Tray& tray = mesa_.Scene().View().tray[colour_];
        if (what != QAccessible::Name) return {};
        return DieText(mesa_.CurrentSettings(), colour_, tray.face, tray.ready);
    }

protected:
    QRectF Area() const override {
        const Box box = mesa_.Shared().layout.DieBox(colour_);
        return {QPointF(box.x, box.y), QSizeF(box.width, box.height)};
    }
    void Press() override { ClickAt(mesa_.Shared().layout.DieBox(colour_).Centre()); }

private:
    Colour colour_;
};

class PiecePart : public PressablePart {
public:
    PiecePart(Mesa& mesa, PieceCode code) : PressablePart(mesa), code_(code) {}
    QAccessible::Role role() const override { return QAccessible::PushButton; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? PieceText(mesa_.State(), mesa_.CurrentSettings(), code_)
                                         : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const BoardView& view = mesa_.Scene().View();
        state.invisible = !view.present[code_];
        state.disabled = !view.movable[code_];
        state.selected = view.marked == code_;
        return state;
    }

protected:
    Point Place() const { return PlaceOfPiece(mesa_.Shared().layout, mesa_.State(), code_); }
    QRectF Area() const override { return AroundPoint(Place(), mesa_.Shared().layout.PieceSize); }
    void Press() override { ClickAt(Place()); }

private:
    PieceCode code_;
};

class SquarePart : public BoardPart {
public:
    SquarePart(Mesa& mesa, Square square) : BoardPart(mesa), square_(square) {}
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? SquareText(mesa_.State(), mesa_.CurrentSettings(), square_)
                                         : QString();
    }

protected:
    QRectF Area() const override {
        const Layout& layout = mesa_.Shared().layout;
        return AroundPoint(layout.SquarePosition(square_), layout.Cell);
    }

private:
    Square square_;
};

// The line that says what happens: its name is the latest news.
class NewsPart : public BoardPart {
public:
    using BoardPart::BoardPart;
    QAccessible::Role role() const override { return QAccessible::StatusBar; }
    QString text(QAccessible::Text what) const override {
        if (what != QAccessible::Name) return {};
        return mesa_.News().isEmpty() ? TurnText(mesa_.State(), mesa_.CurrentSettings()) : mesa_.News();
    }

protected:
    QRectF Area() const override {
        const Box box = mesa_.Shared().layout.LogPaper;
        return {QPointF(box.x, box.y), QSizeF(box.width, box.height)};
    }
};

class BoardAccessible : public QAccessibleWidget {
public:
    explicit BoardAccessible(Mesa& mesa) : QAccessibleWidget(&mesa, QAccessible::Grouping, "Tablero") {
        Add(std::make_unique<NewsPart>(mesa));
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            Add(std::make_unique<DiePart>(mesa, colour));
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                Add(std::make_unique<PiecePart>(mesa, CodeOf(colour, piece)));
            }
        }
        for (Square square = 1; square <= LastSquare; ++square) {
            Add(std::make_unique<SquarePart>(mesa, square));
        }
    }
    ~BoardAccessible() override {
        for (const QAccessible::Id id : parts_) QAccessible::deleteAccessibleInterface(id);
    }

    QAccessibleInterface* Part(int index) const {
        return QAccessible::accessibleInterface(parts_[index]);
    }

    int childCount() const override { return Controls() + static_cast<int>(parts_.size()); }
    QAccessibleInterface* child(int index) const override {
        if (index < Controls()) return QAccessibleWidget::child(index);
        const int part = index - Controls();
        return part < static_cast<int>(parts_.size()) ? Part(part) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (std::size_t part = 0; part < parts_.size(); ++part) {
            if (Part(static_cast<int>(part)) == child) return Controls() + static_cast<int>(part);
        }
        return QAccessibleWidget::indexOfChild(child);
    }

private:
    int Controls() const { return QAccessibleWidget::childCount(); }
    // Qt's register owns the parts; the board deletes them there.
    void Add(std::unique_ptr<BoardPart> part) {
        parts_.push_back(QAccessible::registerAccessibleInterface(part.release()));
    }

    std::vector<QAccessible::Id> parts_;
};

QAccessibleInterface* MakeBoardAccessible(const QString& className, QObject* object) {
    auto* mesa = className == Mesa::staticMetaObject.className() ? qobject_cast<Mesa*>(object) : nullptr;
    return mesa != nullptr ? new BoardAccessible(*mesa) : nullptr;
}

}  // namespace

void InstallBoardAccessibility() {
    QAccessible::installFactory(MakeBoardAccessible);
}

void Announce(Mesa& mesa, const QString& text) {
    mesa.SetNews(text);
    if (!QAccessible::isActive()) return;
    auto* board = dynamic_cast<BoardAccessible*>(QAccessible::queryAccessibleInterface(&mesa));
    if (board == nullptr) return;
    QAccessibleEvent renamed(board->Part(0), QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent alert(board->Part(0), QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace zorva
