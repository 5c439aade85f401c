#include "app/instance_lock.h"
#include "support/child_process.h"
#include "support/error_number.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <csignal>
#include <memory>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tarnwick;
using State = InstanceLock::State;

/// The sign of a running instance, by itself.
class tst_instance_lock : public QObject {
    Q_OBJECT
private slots:
    void init();

    void the_second_lock_is_refused_until_the_first_is_gone();
    void a_lock_goes_with_a_killed_process();
    void a_file_that_is_there_locks_whatever_it_holds_data();
    void a_file_that_is_there_locks_whatever_it_holds();
    void a_file_of_another_user_that_may_only_be_read_locks();
    void a_file_of_another_user_that_may_not_even_be_read_leaves_the_folder_to_lock();
    void a_folder_that_takes_no_file_is_locked_itself();
    void an_instance_whose_file_was_removed_is_seen_by_its_folder();
    void a_folder_that_is_not_there_can_not_be_locked();
    void a_lock_that_is_no_file_is_told_at_once_data();
    void a_lock_that_is_no_file_is_told_at_once();
    void the_file_is_gone_after_the_release();

private:
    void put(const QByteArray& content) const;
    /// What a process without root's rights finds: "taken", "held" or "impossible".
    QString found_by_nobody() const;
    QString file() const { return folder_->filePath(QStringLiteral("groc.lock")); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_instance_lock::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
}

void tst_instance_lock::put(const QByteArray& content) const
{
    QFile out(file());
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(content), content.size());
}

QString tst_instance_lock::found_by_nobody() const
{
    const QString path = file();
    return as_nobody([path] {
        static const std::array words = {"taken", "held", "impossible"};
        InstanceLock lock(path);
        return QString::fromLatin1(words[static_cast<size_t>(lock.take())]);
    });
}

void tst_instance_lock::the_second_lock_is_refused_until_the_first_is_gone()
{
    InstanceLock second(file());
    {
        InstanceLock first(file());
        QCOMPARE(first.take(), State::taken);
        QCOMPARE(second.take(), State::held_by_another);
        QCOMPARE(second.take(), State::held_by_another);
    }
    QCOMPARE(second.take(), State::taken);
    QCOMPARE(second.folder(), folder_->path());
}

void tst_instance_lock::a_lock_goes_with_a_killed_process()
{
    std::array<int, 2> ready{};
    QCOMPARE(::pipe(ready.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        InstanceLock lock(file());
        const char taken = lock.take() == State::taken ? 'y' : 'n';
        if (::write(ready[1], &taken, 1) == 1)
            ::pause();
        ::_exit(0);
    }
    char taken = 0;
    QCOMPARE(::read(ready[0], &taken, 1), 1);
    QCOMPARE(taken, 'y');
    InstanceLock lock(file());
    QCOMPARE(lock.take(), State::held_by_another);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    QVERIFY(QFile::exists(file()));
    QCOMPARE(lock.take(), State::taken);
}

void tst_instance_lock::a_file_that_is_there_locks_whatever_it_holds_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("\0\xff\xfe garbage", 10);
    QTest::newRow("a process that runs, on another host") << QByteArray("1\ntarnwick\nelsewhere\n\n\n");
    QTest::newRow("this process") << QByteArray::number(::getpid()) + "\ntst_instance_lock\n";
}

void tst_instance_lock::a_file_that_is_there_locks_whatever_it_holds()
{
    QFETCH(QByteArray, content);
    put(content);
    InstanceLock first(file());
    QCOMPARE(first.take(), State::taken);
    QCOMPARE(InstanceLock(file()).take(), State::held_by_another);
}

void tst_instance_lock::a_file_of_another_user_that_may_only_be_read_locks()
{
    put("");
    QVERIFY(::chmod(QFile::encodeName(file()).constData(), 0444) == 0);
    QVERIFY(::chmod(QFile::encodeName(folder_->path()).constData(), 0755) == 0);
    QCOMPARE(found_by_nobody(), QStringLiteral("taken"));
    InstanceLock lock(file());
    QCOMPARE(lock.take(), State::taken);
    QCOMPARE(found_by_nobody(), QStringLiteral("held"));
}

void tst_instance_lock::a_file_of_another_user_that_may_not_even_be_read_leaves_the_folder_to_lock()
{
    put("");
    QVERIFY(::chmod(QFile::encodeName(file()).constData(), 0) == 0);
    QVERIFY(::chmod(QFile::encodeName(folder_->path()).constData(), 0755) == 0);
    QCOMPARE(found_by_nobody(), QStringLiteral("taken"));
    InstanceLock lock(file());
    QCOMPARE(lock.take(), State::taken);
    QCOMPARE(found_by_nobody(), QStringLiteral("held"));
}

// As on a full disk, where no file can be made either.
void tst_instance_lock::a_folder_that_takes_no_file_is_locked_itself()
{
    QVERIFY(::chmod(QFile::encodeName(folder_->path()).constData(), 0555) == 0);
    QCOMPARE(found_by_nobody(), QStringLiteral("taken"));
    QVERIFY(!QFile::exists(file()));
    InstanceLock lock(file());
    QCOMPARE(lock.take(), State::taken);
    QCOMPARE(found_by_nobody(), QStringLiteral("held"));
}

void tst_instance_lock::an_instance_whose_file_was_removed_is_seen_by_its_folder()
{
    put("");
    InstanceLock first(file());
    QCOMPARE(first.take(), State::taken);
    QVERIFY(QFile::remove(file()));
    QCOMPARE(InstanceLock(file()).take(), State::held_by_another);
}

void tst_instance_lock::a_folder_that_is_not_there_can_not_be_locked()
{
    InstanceLock lock(folder_->filePath(QStringLiteral("gone/groc.lock")));
    QCOMPARE(lock.take(), State::impossible);
    QVERIFY(!QFile::exists(folder_->filePath(QStringLiteral("gone"))));
}

void tst_instance_lock::a_lock_that_is_no_file_is_told_at_once_data()
{
    QTest::addColumn<bool>("fifo");
    QTest::newRow("FIFO") << true;
    QTest::newRow("folder") << false;
}

void tst_instance_lock::a_lock_that_is_no_file_is_told_at_once()
{
    QFETCH(bool, fifo);
    const QByteArray path = QFile::encodeName(file());
    QCOMPARE(fifo ? ::mkfifo(path.constData(), 0666) : ::mkdir(path.constData(), 0777), 0);
    constexpr int path_access_error = 75;
    InstanceLock lock(file());
    QCOMPARE(error_number([&lock] { lock.take(); }), path_access_error);
    lock.release();
    QVERIFY(QFile::exists(file()));
}

void tst_instance_lock::the_file_is_gone_after_the_release()
{
    InstanceLock lock(file());
    QCOMPARE(lock.take(), State::taken);
    QVERIFY(QFile::exists(file()));
    lock.release();
    QVERIFY(!QFile::exists(file()));
    lock.release();
    // One that was refused removes nothing.
    QCOMPARE(lock.take(), State::taken);
    {
        InstanceLock refused(file());
        QCOMPARE(refused.take(), State::held_by_another);
    }
    QVERIFY(QFile::exists(file()));
}

QTEST_GUILESS_MAIN(tst_instance_lock)
#include "tst_instance_lock.moc"
