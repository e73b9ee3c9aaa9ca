#include "customui/AccessibleHoverButton.h"

#include "customui/ZRCheckHoverButton.h"

namespace {

QAccessibleInterface* interfaceOf(const QString&, QObject* object)
{
    auto* button = qobject_cast<ZRHoverButton*>(object);
    return button ? new AccessibleHoverButton(*button) : nullptr;
}

}

AccessibleHoverButton::AccessibleHoverButton(ZRHoverButton& button)
    : QAccessibleWidget(&button, QAccessible::Button)
    , m_button(button)
{
}

void AccessibleHoverButton::install()
{
    static const bool isInstalled = (QAccessible::installFactory(interfaceOf), true);
    Q_UNUSED(isInstalled);
}

QString AccessibleHoverButton::text(QAccessible::Text kind) const
{
    const QString text = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && text.isEmpty() ? m_button.title() : text;
}

QAccessible::State AccessibleHoverButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (const auto* check = qobject_cast<const ZRCheckHoverButton*>(&m_button)) {
        state.checkable = true;
        state.checked = check->state();
    }
    return state;
}

QStringList AccessibleHoverButton::actionNames() const
{
    return QAccessibleWidget::actionNames() << pressAction();
}

void AccessibleHoverButton::doAction(const QString& name)
{
    if (name == pressAction())
        m_button.click();
    else
        QAccessibleWidget::doAction(name);
}
