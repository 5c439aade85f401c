#pragma once

#include <QFile>
#include <QTest>

namespace tarnwick {

/// All that a file holds; "(no file)" when it cannot be read.
inline QByteArray bytes_of(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// Makes a file of these bytes, in place of one that is there.
inline void write_bytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace tarnwick
