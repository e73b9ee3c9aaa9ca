#pragma once

#include "editor/TextLine.h"
#include "editor/ZRBasicCustomView.h"
#include "editor/ZRScreenShotTextField.h"

#include <QPointer>

// A text on the region: a box that is moved, selected and deleted as a whole and, inside it, the field that
// edits the text. Its rectangle is the box, which grows and shrinks with what is typed and cannot be resized.
class ZRTextEditor : public ZRBasicCustomView {
public:
    ZRTextEditor();
    ~ZRTextEditor() override;

    // Null once its parent, the editor view, is gone.
    ZRScreenShotTextField* textField() const { return mTextField; }
    // A wish of the field's, or a change in it, that is to be shown.
    std::function<void()> onChange;
    std::function<void()> onEndEdit;

    void updateFrame(ZRRect frame) { setVctualRect(frame); }
    void changeTextColor(const QColor& color) { setColor(color); }
    // Fits the box to the text.
    void changeTextFont(const QFont& font);
    const QFont& textFont() const { return m_font; }
    // The text as if it had been typed, and edited no more.
    void restoreText(const QString& text, const QFont& font);

    // One character, as the Backspace key does it; nothing outside an edit.
    void deleteText();
    bool isEditing() const { return mTextField && mTextField->isEditing(); }
    // Whether nothing was left in it when its edit ended.
    bool isNullText() const { return !mTextField || mTextField->textString().isEmpty(); }
    bool becomeFirstResponder();
    void refusesFirstResponder();
    void focusOn() { ZRBasicCustomView::registerFocusOn(); }
    // Ends an edit too.
    void unFocusOn();

    bool isFocusOn() const override { return isEditing() || ZRBasicCustomView::isFocusOn(); }
    void registerFocusOn() override { focusOn(); }
    void unregisterFocusOn() override { unFocusOn(); }
    bool isClickOn(ZRPoint point) override { return vctualRect().contains(point); }
    EntityRecord record() const override;
    bool isUndoneWhole() const override { return true; }

    // Move the box, outside of an edit.
    void mouseDown(ZRPoint point) override;
    void mouseDragged(ZRPoint point) override;
    // The same in the field during an edit: place the caret, or select words with more clicks than one.
    void pressInField(ZRPoint point, int clickCount);
    void dragInField(ZRPoint point);
    // Where the caret is.
    ZRRect caretRect() const;

protected:
    const char* className() const override { return "ZRTextEditor"; }

private:
    void textChanged(const TextRules::Change& change);
    void layOut();
    qsizetype locationAt(ZRPoint point) const;

    QPointer<ZRScreenShotTextField> mTextField;
    QFont m_font;
    std::shared_ptr<const TextLine> m_line;
};
