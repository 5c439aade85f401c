#include "output/paper.h"

#include "support/full_disk.h"
#include "support/message_script.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace tarnwick;

namespace {

/// A job of one page without a thing on it, whose file is smaller than what a file holds back.
PrintJob blank_job()
{
    return {QStringLiteral("Weekly list"), 1, 1, [](int) {
                Page page;
                page.size = {page_form::width, page_form::height};
                return page;
            }};
}

} // namespace

/// What becomes of a job where there is no printer.
class tst_paper : public QObject {
    Q_OBJECT
private slots:
    void a_full_disk_is_told_and_leaves_no_file();
};

void tst_paper::a_full_disk_is_told_and_leaves_no_file()
{
    const QTemporaryDir documents;
    const QString path = documents.filePath(QStringLiteral("list.pdf"));
    QWidget owner;
    const Paper paper{nullptr, documents.path()};
    const auto save = [&path](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QVERIFY(name);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    };
    MessageScript script;
    script.drive(save);
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("The file cannot be written:\n%1").arg(path));
    {
        const FullDisk full(256);
        QVERIFY(!print_job(owner, paper, blank_job()));
    }
    QCOMPARE(script.left(), 0);
    QCOMPARE(QDir(documents.path()).entryList(QDir::Files | QDir::Hidden), QStringList());

    script.drive(save);
    QVERIFY(print_job(owner, paper, blank_job()));
    QVERIFY(QFile(path).size() > 256);
    QVERIFY(QFile(path).size() < 16 * 1024);
}

QTEST_MAIN(tst_paper)
#include "tst_paper.moc"
