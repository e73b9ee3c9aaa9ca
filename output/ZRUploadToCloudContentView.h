#pragma once

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>
#include <memory>

class ZRHoverButton;

// The form of an upload: a preview, a title, whether everybody may see the picture or only who knows a
// password, and the button that starts it. Kept: "Authorty" in the names.
class ZRUploadToCloudContentView : public QWidget {
public:
    static std::unique_ptr<ZRUploadToCloudContentView> loadFromNibNamed();

    // All texts, in the current language.
    void changeText();
    void setImage(const QImage& preview);
    // What was typed; never the prompt.
    QString title() const { return mTitleTextField->text(); }
    QString password() const;
    bool isPrivate() const { return _Authorty; }
    // Kept: the spelling.
    void setSureButtonActtion(std::function<void()> action) { m_sureAction = std::move(action); }
    void updateAuthorityEnable(bool isPrivate, bool animation);
    void actionForSwithAuthority() { updateAuthorityEnable(!_Authorty, true); }
    void sureUploadToImage() const;

private:
    ZRUploadToCloudContentView();
    void awakeFromNib();
    void layOut();
    void showPrivacy(double part);

    QLabel* mNoticeLabel;
    QLineEdit* mTitleTextField;
    QLabel* mPasswordLabel;
    QLineEdit* mPasswordTextField;
    QLabel* mScreenshotImage;
    QLabel* mLabelAuthority;
    ZRHoverButton* mBtnHelp;
    ZRHoverButton* mBtnUpload;
    ZRHoverButton* mSwitchBtnAuthorty; // the switch itself, with all that follows on it
    QLabel* mImagePublicBg;
    QLabel* mImagePrivateBg;
    QLabel* mBtnAuthortyKnob;
    QLabel* mLabelAuthortyYes;
    QLabel* mLabelAuthortyNo;
    bool _Authorty = false;        // private
    QVariantAnimation m_switching; // from 0 public to 1 private
    std::function<void()> m_sureAction;
};
