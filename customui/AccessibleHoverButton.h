#pragma once

#include <QAccessibleWidget>

class ZRHoverButton;

// What a screen reader is told of a hover button: a button that can be pressed, checked where it has a state.
class AccessibleHoverButton : public QAccessibleWidget {
public:
    explicit AccessibleHoverButton(ZRHoverButton& button);

    // Makes Qt ask this class for every hover button; once for the process.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    ZRHoverButton& m_button;
};
