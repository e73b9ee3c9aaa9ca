#include "output/ZRScreenshotUploadSettingWindow.h"

#include "commonutils/ModalSession.h"
#include "customui/Images.h"
#include "output/ZRUploadSettingWindowHeaderView.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <utility>

namespace {

const QColor kPanel(240, 248, 255);
const QColor kBorder(150, 173, 205);

}

std::unique_ptr<ZRScreenshotUploadSettingWindow> ZRScreenshotUploadSettingWindow::LoadFromNib()
{
    return std::unique_ptr<ZRScreenshotUploadSettingWindow>(new ZRScreenshotUploadSettingWindow);
}

ZRScreenshotUploadSettingWindow::ZRScreenshotUploadSettingWindow()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_header(new ZRUploadSettingWindowHeaderView(this))
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(iconNamed(QStringLiteral("Icon256x256")));
}

ZRScreenshotUploadSettingWindow::~ZRScreenshotUploadSettingWindow() = default;

void ZRScreenshotUploadSettingWindow::setDocumentView(QWidget* form)
{
    if (m_form && m_form != form)
        m_form->deleteLater();
    m_form = form;
    form->setParent(this);
    form->move(1, ZRUploadSettingWindowHeaderView::kHeight + 1);
    form->show();
    setFixedSize(form->size() + QSize(2, ZRUploadSettingWindowHeaderView::kHeight + 2));
    m_header->setGeometry(1, 1, form->width(), ZRUploadSettingWindowHeaderView::kHeight);
}

void ZRScreenshotUploadSettingWindow::changeText()
{
    m_header->changeText();
}

void ZRScreenshotUploadSettingWindow::runModal()
{
    m_session = std::make_unique<ModalSession>();
    const QScreen* display = QGuiApplication::screenAt(QCursor::pos());
    if (!display)
        display = QGuiApplication::primaryScreen();
    if (display)
        move(display->availableGeometry().center() - rect().center());
    show();
    raise();
    activateWindow();
    if (m_form)
        m_form->setFocus();
}

void ZRScreenshotUploadSettingWindow::stopModal(int code)
{
    if (!std::exchange(m_session, nullptr))
        return;
    hide();
    if (onEnded)
        onEnded(code);
}

void ZRScreenshotUploadSettingWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    stopModal(kNotConfirmed);
}

void ZRScreenshotUploadSettingWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        stopModal(kNotConfirmed);
    else
        event->ignore();
}

void ZRScreenshotUploadSettingWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kBorder);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), kPanel);
}
