#pragma once

#include "editor/TextRules.h"

#include <QLineEdit>
#include <QTextLayout>

// The field of a text box: the native control that takes keys and input methods while the text is edited, and
// nothing else. It is not seen: the annotation's text, selection and caret are painted from what it holds.
class ZRScreenShotTextField : public QLineEdit {
public:
    explicit ZRScreenShotTextField(QWidget* parent = nullptr);

    bool isEditing() const { return bIsBecomeFirstResponder; }
    // Starts the edit: from now on keys come here. False where there is no window to show the field in.
    bool becomeFirstResponder();
    // Ends the edit and saves the text, with what an input method had not committed yet; keys go to the
    // window again.
    void refusesFirstResponder();
    // The text as it was saved when the edit ended last.
    QString textString() const { return m_saved; }
    void setTextString(const QString& text);
    // One character, as the Backspace key does it; nothing outside an edit.
    void deleteBackward();

    // What is to be seen: the text with what an input method composes in it.
    QString shownText() const;
    const QList<QTextLayout::FormatRange>& formats() const { return m_formats; }
    qsizetype caret() const { return cursorPosition() + m_caretInPreedit; }
    TextRules::Range selection() const;

    // The mouse, at a place in the text.
    void placeCaret(qsizetype location);
    void selectTo(qsizetype location);
    void selectWord(qsizetype location);

    std::function<void(const TextRules::Change&)> onTextChange; // of what is to be seen
    std::function<void()> onCaretMove;
    std::function<void()> onEndEdit;   // a key asks for the end; the field may go in it
    std::function<QRectF()> caretRect; // points of the field, for an input method's list

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

private:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent*) override { }
    bool focusNextPrevChild(bool) override { return false; }

    void edit(const std::function<void()>& step);
    void takePreedit(const QInputMethodEvent& event);
    void commitPreedit();

    bool bIsBecomeFirstResponder = false;
    QString m_saved;
    QString m_preedit; // not committed yet; stands at the cursor
    qsizetype m_caretInPreedit = 0;
    QList<QTextLayout::FormatRange> m_formats;
    qsizetype m_anchor = 0; // of a selection by the mouse
};
