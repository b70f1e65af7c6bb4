#include "app/BoardAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QScrollBar>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "app/Mesa.h"
#include "app/Pacer.h"
#include "app/PiecePlaces.h"
#include "app/Sentences.h"
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

// Qt's register owns the parts; who registers them deletes them there.
QAccessible::Id Register(std::unique_ptr<BoardPart> part) {
    return QAccessible::registerAccessibleInterface(part.release());
}

// Where the move log is.
QRectF AreaOfNews(const Layout& layout) {
    const Box& box = layout.LogPaper;
    return {QPointF(box.x, box.y), QSizeF(box.width, box.height)};
}

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
        state.disabled = !view.IsMovable(code_);
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

// A sentence. Readers speak a part of this role when it is said to have appeared, wherever the focus is.
class SentencePart : public BoardPart {
public:
    SentencePart(Mesa& mesa, QAccessibleInterface& bar) : BoardPart(mesa), bar_(bar) {}
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessibleInterface* parent() const override { return &bar_; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? sentence_ : QString();
    }
    void Appear(const QString& sentence) {
        sentence_ = sentence;
        QAccessibleEvent shown(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&shown);
    }

protected:
    QRectF Area() const override { return AreaOfNews(mesa_.Shared().layout); }

private:
    QAccessibleInterface& bar_;
    QString sentence_;
};

// The last sentences. They take turns: a reader drops an event of a part while it has a newer one of the
// same part to deal with. In a status bar, they are spoken without "notification" before each.
class NewsBar : public BoardPart {
public:
    explicit NewsBar(Mesa& mesa) : BoardPart(mesa) {
        for (QAccessible::Id& id : sentences_)
            id = Register(std::make_unique<SentencePart>(mesa, *this));
    }
    ~NewsBar() override {
        for (const QAccessible::Id id : sentences_) QAccessible::deleteAccessibleInterface(id);
    }

    QAccessible::Role role() const override { return QAccessible::StatusBar; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? QStringLiteral("Lo último") : QString();
    }
    int childCount() const override { return static_cast<int>(sentences_.size()); }
    QAccessibleInterface* child(int index) const override { return Sentence(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        int index = childCount() - 1;
        while (index >= 0 && Sentence(index) != child) --index;
        return index;
    }

    void Say(const QString& sentence) {
        next_ = (next_ + 1) % childCount();
        Sentence(next_)->Appear(sentence);
    }

protected:
    QRectF Area() const override { return AreaOfNews(mesa_.Shared().layout); }

private:
    SentencePart* Sentence(int index) const {
        return static_cast<SentencePart*>(QAccessible::accessibleInterface(sentences_[index]));
    }

    std::array<QAccessible::Id, 24> sentences_{};
    int next_ = 0;
};

class BoardAccessible : public QAccessibleWidget {
public:
    explicit BoardAccessible(Mesa& mesa) : QAccessibleWidget(&mesa, QAccessible::Grouping, "Tablero") {
        Add(std::make_unique<NewsBar>(mesa));
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
    NewsBar& News() const { return static_cast<NewsBar&>(*Part(0)); }

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
    // The large keys of the recorder come last and are left out: readers have those of its strip.
    int Controls() const { return QAccessibleWidget::childCount() - RecorderKeyCount; }
    void Add(std::unique_ptr<BoardPart> part) { parts_.push_back(Register(std::move(part))); }

    std::vector<QAccessible::Id> parts_;
};

QAccessibleInterface* MakeBoardAccessible(const QString& className, QObject* object) {
    auto* mesa = className == Mesa::staticMetaObject.className() ? qobject_cast<Mesa*>(object) : nullptr;
    return mesa != nullptr ? new BoardAccessible(*mesa) : nullptr;
}

// Qt reports every step of a scroll bar, even of a hidden one like the log's, which scrolls with each
// move. A reader that has more than a hundred reports to deal with drops sentences.
void DropHiddenBars(QAccessibleEvent* event) {
    const auto* bar = qobject_cast<QScrollBar*>(event->object());
    if (bar != nullptr && !bar->isVisible()) return;
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(DropHiddenBars);
}

}  // namespace

void InstallBoardAccessibility() {
    QAccessible::installFactory(MakeBoardAccessible);
    QAccessible::installUpdateHandler(DropHiddenBars);
}

void Announce(Mesa& mesa, const QString& sentence) {
    auto* board = dynamic_cast<BoardAccessible*>(QAccessible::queryAccessibleInterface(&mesa));
    if (board != nullptr) board->News().Say(sentence);
}

}  // namespace zorva
