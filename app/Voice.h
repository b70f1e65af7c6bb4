#pragma once

#include <QAccessible>
#include <QTimer>
#include <functional>

class QString;

namespace zorva {

class Mesa;

/// Speaks through a screen reader. A reader tells nobody when it has finished, so the voice counts how
/// long each sentence takes. Without a reader it does nothing and costs nothing.
class Voice : private QAccessible::ActivationObserver {
public:
    explicit Voice(Mesa& mesa);
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;
    ~Voice() override;

    /// Whether somebody listens.
    bool IsHeard() const { return isHeard_; }
    /// Whether all sentences have been spoken.
    bool IsFree() const;
    /// Hands a sentence to the reader, which speaks it after those before. While the player has hidden
    /// the board or works with another program, it is dropped.
    void Say(const QString& sentence);
    /// The player has pressed a key, at which readers fall silent.
    void BreakOff();

    /// Called when the last sentence has been spoken.
    std::function<void()> Freed;

private:
    void accessibilityActiveChanged(bool active) override { isHeard_ = active; }

    Mesa& mesa_;
    bool isHeard_ = QAccessible::isActive();
    QTimer end_;  // runs while the reader speaks
};

}  // namespace zorva
