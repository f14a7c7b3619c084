// A folder of files that one test makes.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta::test {

class FolderTest : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    /// Writes the bytes in place: the file keeps its identity.
    QString put(const QString& name, const QByteArray& bytes) const
    {
        EXPECT_TRUE(writeBytes(path(name), bytes));
        return path(name);
    }

    [[nodiscard]] static bool writeBytes(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    [[nodiscard]] static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Names in the folder, hidden ones too.
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

/// Makes a locale the user's while it lives.
class UserLocale
{
public:
    explicit UserLocale(const QString& name) { QLocale::setDefault(QLocale(name)); }
    ~UserLocale() { QLocale::setDefault(m_before); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

private:
    QLocale m_before;
};

} // namespace orvanta::test
