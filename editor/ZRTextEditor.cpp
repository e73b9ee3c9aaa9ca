#include "editor/ZRTextEditor.h"

ZRTextEditor::ZRTextEditor()
    : mTextField(new ZRScreenShotTextField)
{
    setGraffitViewID(QStringLiteral("text"));
    focusOn();
    setIsDrawDone();
    mTextField->onTextChange = [this](const TextRules::Change& change) { textChanged(change); };
    mTextField->onCaretMove = [this] { layOut(); };
    mTextField->onEndEdit = [this] {
        if (onEndEdit)
            onEndEdit();
    };
    layOut();
}

// The field may be in the middle of the key that ends it.
ZRTextEditor::~ZRTextEditor()
{
    if (!mTextField)
        return;
    mTextField->onTextChange = nullptr;
    mTextField->onCaretMove = nullptr;
    mTextField->caretRect = nullptr;
    mTextField->hide();
    mTextField->deleteLater();
}

void ZRTextEditor::changeTextFont(const QFont& font)
{
    m_font = font;
    if (mTextField)
        mTextField->setFont(font);
    const ZRSize size = TextRules::boxSize(mTextField ? mTextField->shownText() : QString(), font);
    updateFrame({vctualRect().x, vctualRect().y, size.width, size.height});
    layOut();
}

void ZRTextEditor::restoreText(const QString& text, const QFont& font)
{
    if (mTextField)
        mTextField->setTextString(text);
    changeTextFont(font);
}

void ZRTextEditor::deleteText()
{
    if (isEditing())
        mTextField->deleteBackward();
}

bool ZRTextEditor::becomeFirstResponder()
{
    const bool isEdited = mTextField && mTextField->becomeFirstResponder();
    layOut();
    return isEdited;
}

void ZRTextEditor::refusesFirstResponder()
{
    ZRBasicCustomView::unregisterFocusOn();
    if (mTextField)
        mTextField->refusesFirstResponder();
    layOut();
}

void ZRTextEditor::unFocusOn()
{
    if (isEditing())
        refusesFirstResponder();
    else
        ZRBasicCustomView::unregisterFocusOn();
}

EntityRecord ZRTextEditor::record() const
{
    EntityRecord record = ZRBasicCustomView::record();
    record.text = m_line;
    if (isEditing())
        record.textCursor = {mTextField->caret(), mTextField->selection()};
    return record;
}

// Nothing is remembered: undo takes a text away, wherever it was moved.
void ZRTextEditor::mouseDown(ZRPoint point)
{
    stepTo(point);
}

void ZRTextEditor::mouseDragged(ZRPoint point)
{
    if (!isEditing() && isFocusOn())
        moveBy(stepTo(point));
}

void ZRTextEditor::pressInField(ZRPoint point, int clickCount)
{
    if (clickCount > 1)
        mTextField->selectWord(locationAt(point));
    else
        mTextField->placeCaret(locationAt(point));
}

void ZRTextEditor::dragInField(ZRPoint point)
{
    mTextField->selectTo(locationAt(point));
}

ZRRect ZRTextEditor::caretRect() const
{
    const ZRPoint corner = TextRules::textCorner(vctualRect());
    const double height = m_line->size().height;
    return {corner.x + m_line->xOf(mTextField ? mTextField->caret() : 0), corner.y - height, 1, height};
}

void ZRTextEditor::textChanged(const TextRules::Change& change)
{
    const double width = TextRules::fieldWidth(
        change, [this](const QString& text) { return TextRules::measured(text, m_font).width; });
    const ZRRect box = vctualRect();
    updateFrame({box.x, box.y, TextRules::boxWidth(width), box.height});
    layOut();
}

void ZRTextEditor::layOut()
{
    if (mTextField)
        m_line = std::make_shared<const TextLine>(mTextField->shownText(), m_font, mTextField->formats());
    if (onChange)
        onChange();
}

qsizetype ZRTextEditor::locationAt(ZRPoint point) const
{
    return m_line->locationAt(point.x - TextRules::textCorner(vctualRect()).x);
}
