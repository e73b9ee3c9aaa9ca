#pragma once

#include <QByteArray>
#include <QImage>
#include <QMimeData>

#include <future>

// A picture in the types that programs paste, each encoded once and of the same pixels.
struct EncodedPicture {
    QByteArray png;
    QByteArray tiff;

    // Format_RGB32; any thread.
    static EncodedPicture of(const QImage& picture);
    bool isComplete() const { return !png.isEmpty() && !tiff.isEmpty(); }
};

// What the clipboard holds of a capture: PNG first, then TIFF, and nothing else, so that a clipboard manager
// which asks for everything is served at once. It may be handed over while the picture is still being
// encoded; a request for its data then waits.
class ClipboardPicture : public QMimeData {
    Q_OBJECT
public:
    explicit ClipboardPicture(std::shared_future<EncodedPicture> picture);

    bool hasFormat(const QString& mimeType) const override;
    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    const std::shared_future<EncodedPicture> m_picture;
};
