#pragma once

#include "data/query.h"
#include "output/pdf_file.h"
#include "output/prev_frm.h"
#include "output/prev_rcp.h"
#include "support/message_script.h"
#include "support/test_window.h"
#include "window/commands.h"
#include "support/tool_button.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace tarnwick {

/// A print option in the settings, as a start reads it.
inline void set_report(TestWindow& w, const char* key, int value)
{
    w.set_pref(QStringLiteral("clean"), QStringLiteral("0")); // the first settings are there
    Settings(w.environment().settings_file)
        .write(QStringLiteral("trnwck"), QStringLiteral("reports"), QLatin1String(key), QString::number(value));
}

/// A printer that puts each job into a PDF file of its own.
class TestPrinter {
public:
    explicit TestPrinter(TestWindow& window)
    {
        window.environment().printer = [this]() -> std::unique_ptr<QPagedPaintDevice> {
            auto device = std::make_unique<QPdfWriter>(file(jobs++));
            device->setResolution(600);
            device->setPageLayout({QPageSize(paper), QPageLayout::Portrait, margins, QPageLayout::Millimeter});
            return device;
        };
    }

    QList<PdfPage> job(int number) const { return read_pdf(file(number)); }
    QString file(int number) const { return folder_.filePath(QStringLiteral("job%1.pdf").arg(number)); }

    int jobs = 0; ///< how often a job was sent
    QPageSize::PageSizeId paper = QPageSize::A4;
    QMarginsF margins{10, 10, 10, 10};

private:
    QTemporaryDir folder_;
};

/// Triggers a command that is enabled.
inline void trigger(TestWindow& w, const char* name)
{
    QAction& action = w.main().commands().action(QLatin1String(name));
    QVERIFY2(action.isEnabled(), name);
    action.trigger();
}

/// Clicks a toolbar button that is enabled.
inline void click_button(TestWindow& w, ToolButton which)
{
    auto* button = w.find<QToolButton>(tool_button(which));
    QVERIFY(button);
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
}

inline QPushButton& Command1(QDialog& window, int index)
{
    auto* button = window.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(index));
    if (!button)
        qFatal("no Command1(%d)", index);
    return *button;
}

inline void click(QDialog& window, int index)
{
    QVERIFY(Command1(window, index).isEnabled());
    QTest::mouseClick(&Command1(window, index), Qt::LeftButton);
}

inline QWidget& part(QDialog& window, const char* name)
{
    auto* found = window.findChild<QWidget*>(QLatin1String(name));
    if (!found)
        qFatal("no %s", name);
    return *found;
}

/// The maps of what a preview has painted.
inline QVariantList shown_page(QDialog& window)
{
    return part(window, "Frame1").property("page").toList();
}

/// The map of a thing on show; empty when it is not there.
inline QVariantMap shown(QDialog& window, const QString& name)
{
    for (const QVariant& each : shown_page(window))
        if (each.toMap().value(QStringLiteral("name")) == name)
            return each.toMap();
    return {};
}

inline QString shown_text(QDialog& window, const char* name)
{
    return shown(window, QLatin1String(name)).value(QStringLiteral("text"), QStringLiteral("(none)")).toString();
}

} // namespace tarnwick
