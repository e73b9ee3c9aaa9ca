#include "tests/service/Samples.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUrl>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

// The program itself, on a free port of loopback.
class KestrelProgramTest : public testing::Test {
protected:
    ~KestrelProgramTest() override
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    void start()
    {
        m_program.start(QStringLiteral(KESTREL), {QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"),
                                                     QStringLiteral("--data"), m_folder.path()});
        ASSERT_TRUE(m_program.waitForReadyRead());
        m_address = QUrl(QString::fromUtf8(m_program.readLine().trimmed().split(' ').last()));
        ASSERT_TRUE(m_address.isValid());
    }
    size_t countIn(const char* part) const
    {
        const fs::path folder = fs::path(m_folder.path().toStdString()) / part;
        return size_t(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
    // Sends a form of `promised` bytes as far as they are given, and waits until the service has them.
    void sendPart(QTcpSocket& socket, const QByteArray& form, qsizetype promised)
    {
        socket.connectToHost(m_address.host(), quint16(m_address.port()));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write("POST /upload HTTP/1.1\r\nHost: x\r\nContent-Type: multipart/form-data; boundary=b\r\n"
                     "Content-Length: " +
                     QByteArray::number(promised) + "\r\n\r\n" + form);
        socket.flush();
        for (int i = 0; i < 100 && countIn("incoming") == 0; ++i)
            socket.waitForReadyRead(50);
        ASSERT_EQ(countIn("incoming"), 1u);
    }

    QTemporaryDir m_folder;
    QProcess m_program;
    QUrl m_address;
};

const QByteArray kHead = QByteArrayLiteral("--b\r\nContent-Disposition: form-data; name=\"file\"; "
                                           "filename=\"a\"\r\n\r\n");

}

TEST_F(KestrelProgramTest, LeavesNoHalfPictureWhenItIsKilled)
{
    start();
    QTcpSocket socket;
    sendPart(socket, kHead + QByteArray::fromStdString(Samples::picture()), 1000000);
    m_program.kill();
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(countIn("pictures"), 0u);
    start();
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(KestrelProgramTest, ForgetsASenderThatGoesAway)
{
    start();
    QTcpSocket socket;
    sendPart(socket, kHead + QByteArray::fromStdString(Samples::picture()), 1000000);
    socket.disconnectFromHost();
    for (int i = 0; i < 100 && countIn("incoming") > 0; ++i)
        m_program.waitForReadyRead(20);
    EXPECT_EQ(countIn("pictures") + countIn("incoming"), 0u);
}

TEST_F(KestrelProgramTest, EndsWhenItIsAskedTo)
{
    start();
    m_program.terminate();
    ASSERT_TRUE(m_program.waitForFinished());
    EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_program.exitCode(), 0);
}
