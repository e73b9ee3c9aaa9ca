#include "editor/ZRScreenShotTextField.h"

#include "settings/AppSettings.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>

namespace {

bool endsEdit(int key)
{
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
}

QTextCharFormat underlined()
{
    QTextCharFormat format;
    format.setFontUnderline(true);
    return format;
}

}

ZRScreenShotTextField::ZRScreenShotTextField(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu); // a menu would take the keyboard from the overlay
    setAccessibleName(AppSettings::getXMLValueForKeywords(QStringLiteral("PaintEdit:Text")));
    hide();
}

bool ZRScreenShotTextField::becomeFirstResponder()
{
    if (!parentWidget())
        return false;
    bIsBecomeFirstResponder = true;
    show();
    setFocus();
    return true;
}

void ZRScreenShotTextField::refusesFirstResponder()
{
    commitPreedit();
    bIsBecomeFirstResponder = false;
    m_saved = text();
    deselect();
    if (parentWidget())
        window()->setFocus();
    hide();
}

void ZRScreenShotTextField::setTextString(const QString& text)
{
    m_saved = text;
    setText(text);
}

void ZRScreenShotTextField::deleteBackward()
{
    if (isEditing())
        edit([this] { backspace(); });
}

QString ZRScreenShotTextField::shownText() const
{
    return displayText().insert(cursorPosition(), m_preedit);
}

TextRules::Range ZRScreenShotTextField::selection() const
{
    return hasSelectedText() ? TextRules::Range{selectionStart(), selectionLength()} : TextRules::Range{};
}

void ZRScreenShotTextField::placeCaret(qsizetype location)
{
    commitPreedit();
    m_anchor = location;
    edit([&] { setCursorPosition(int(location)); });
}

void ZRScreenShotTextField::selectTo(qsizetype location)
{
    edit([&] { setSelection(int(m_anchor), int(location - m_anchor)); });
}

void ZRScreenShotTextField::selectWord(qsizetype location)
{
    placeCaret(location);
    const TextRules::Range word = TextRules::wordAt(text(), location);
    m_anchor = word.location;
    selectTo(word.location + word.length);
}

QVariant ZRScreenShotTextField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const bool asksForPlace = query == Qt::ImCursorRectangle || query == Qt::ImAnchorRectangle;
    return asksForPlace && caretRect ? QVariant(caretRect()) : QLineEdit::inputMethodQuery(query);
}

// No key gets past an edit.
void ZRScreenShotTextField::keyPressEvent(QKeyEvent* event)
{
    if (!endsEdit(event->key()))
        edit([&] { QLineEdit::keyPressEvent(event); });
    else if (onEndEdit)
        onEndEdit();
    event->accept();
}

void ZRScreenShotTextField::inputMethodEvent(QInputMethodEvent* event)
{
    edit([&] {
        QLineEdit::inputMethodEvent(event);
        takePreedit(*event);
    });
}

void ZRScreenShotTextField::edit(const std::function<void()>& step)
{
    const QString before = shownText();
    const TextRules::Range selected = selection();
    step();
    const QString after = shownText();
    if (after != before && onTextChange)
        onTextChange(TextRules::changeBetween(before, selected, after));
    else if (onCaretMove)
        onCaretMove();
}

void ZRScreenShotTextField::takePreedit(const QInputMethodEvent& event)
{
    m_preedit = event.preeditString();
    m_caretInPreedit = m_preedit.size();
    m_formats.clear();
    for (const QInputMethodEvent::Attribute& each : event.attributes()) {
        if (each.type == QInputMethodEvent::Cursor)
            m_caretInPreedit = qBound(0, each.start, int(m_preedit.size()));
        else if (each.type == QInputMethodEvent::TextFormat)
            m_formats.append({cursorPosition() + each.start, each.length,
                qvariant_cast<QTextFormat>(each.value).toCharFormat()});
    }
    if (m_formats.isEmpty() && !m_preedit.isEmpty())
        m_formats = {{cursorPosition(), int(m_preedit.size()), underlined()}};
}

// An input method that does not answer has composed all the same.
void ZRScreenShotTextField::commitPreedit()
{
    if (m_preedit.isEmpty())
        return;
    QGuiApplication::inputMethod()->commit();
    if (m_preedit.isEmpty())
        return;
    QInputMethodEvent commit;
    commit.setCommitString(m_preedit);
    inputMethodEvent(&commit);
    QGuiApplication::inputMethod()->reset();
}
