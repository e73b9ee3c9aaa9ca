#pragma once

class ZRBasicCustomView;

// Hears what the editor view did on its own.
class ZREditorDelegate {
public:
    virtual ~ZREditorDelegate() = default;
    // An empty text box has left the view.
    virtual void EditorDelegate_deleteNullTextField(ZRBasicCustomView* textField) = 0;
    // A key has ended the edit of a text.
    virtual void EditorDelegate_endEdit() = 0;
};
