#include "processes.h"

#include "catalogue.h"
#include "measure.h"

#include "app/application.h"
#include "app/font_loading.h"
#include "window/frmmain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProcess>
#include <QSplitter>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <vector>

namespace tarnwick::bench {
namespace {

/// Peak memory of this process in kilobytes, from the kernel's own account.
int peak_memory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toInt();
    }
    return 0;
}

/// Reports when a window has been painted for the first time.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& window)
        : window_(window)
    {
        qApp->installEventFilter(this);
    }
    void wait()
    {
        while (!painted_)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched == &window_)
            painted_ = true;
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& window_;
    bool painted_ = false;
};

[[noreturn]] void report_and_end()
{
    std::printf("painted %d\n", peak_memory());
    std::fflush(stdout);
    std::_Exit(0);
}

/// User and system time of all children that have ended, in milliseconds.
double processor_time()
{
    rusage used = {};
    ::getrusage(RUSAGE_CHILDREN, &used);
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return ms(used.ru_utime) + ms(used.ru_stime);
}

struct Run {
    double ms = 0;
    double processor_ms = 0;
    double peak_kb = 0;
};

Run run_child(const QStringList& arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const double used_before = processor_time();
    QElapsedTimer clock;
    clock.start();
    child.start(QCoreApplication::applicationFilePath(), arguments);
    QByteArray output;
    while (!output.contains('\n') && child.waitForReadyRead(60000))
        output += child.readAllStandardOutput();
    const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    child.waitForFinished();
    if (!output.startsWith("painted "))
        qFatal("the window was not painted");
    return {ms, processor_time() - used_before, output.mid(8).trimmed().toDouble()};
}

struct Ratios {
    double start = 0;
    double processor = 0;
    double memory = 0;
};

/// A child with such arguments and the program take turns.
Ratios against(const QString& other, const Catalogue& catalogue)
{
    constexpr int runs = 21;
    const QStringList bare = {other};
    const QStringList program = {QStringLiteral("--program"), catalogue.folder()};
    run_child(bare);
    run_child(program);
    std::vector<double> start;
    std::vector<double> processor;
    std::vector<double> memory;
    for (int i = 0; i < runs; ++i) {
        const Run window = run_child(bare);
        const Run whole = run_child(program);
        start.push_back(whole.ms / window.ms);
        processor.push_back(whole.processor_ms / window.processor_ms);
        memory.push_back(whole.peak_kb / window.peak_kb);
    }
    return {median(start), median(processor), median(memory)};
}

QTreeWidget* make_plain_tree()
{
    constexpr int folders = 20;
    constexpr int items = 25;
    constexpr int open = 4;
    auto* tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    for (int i = 0; i < folders; ++i) {
        auto* folder = new QTreeWidgetItem({QStringLiteral("Category %1").arg(i)});
        for (int k = 0; k < items; ++k)
            folder->addChild(new QTreeWidgetItem({QStringLiteral("Item %1 of the house").arg(i * items + k)}));
        tree->addTopLevelItem(folder);
        folder->setExpanded(i < open);
    }
    return tree;
}

QTableView* make_plain_table()
{
    constexpr int rows = 60;
    constexpr int columns = 8;
    auto* model = new QStandardItemModel(rows, columns);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            model->setItem(row, column, new QStandardItem(QStringLiteral("Cell %1 %2").arg(row).arg(column)));
    auto* table = new QTableView;
    table->setModel(model);
    return table;
}

} // namespace

int show_plain_controls(int argc, char** argv)
{
    constexpr int menus = 6;
    constexpr int commands = 8;
    constexpr int buttons = 9;
    constexpr int panels = 5;
    Application application(argc, argv);
    QMainWindow window;
    for (int i = 0; i < menus; ++i) {
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(i));
        for (int k = 0; k < commands; ++k)
            menu->addAction(QStringLiteral("Command %1").arg(k));
    }
    QToolBar* bar = window.addToolBar(QStringLiteral("Commands"));
    for (int i = 0; i < buttons; ++i)
        bar->addAction(QStringLiteral("Button %1").arg(i));
    for (int i = 0; i < panels; ++i)
        window.statusBar()->addWidget(new QLabel(QStringLiteral("Text %1").arg(i)));
    auto* panes = new QSplitter;
    panes->addWidget(make_plain_tree());
    panes->addWidget(make_plain_table());
    window.setCentralWidget(panes);
    PaintWatch watch(window);
    window.resize(1000, 700);
    window.show();
    watch.wait();
    report_and_end();
}

int show_bare_window(int argc, char** argv)
{
    Application application(argc, argv);
    QMainWindow window;
    PaintWatch watch(window);
    window.resize(1000, 700);
    window.show();
    watch.wait();
    report_and_end();
}

int show_program(int argc, char** argv, const QString& folder)
{
    FontLoading fonts;
    Application application(argc, argv);
    fonts.application_made();
    Environment environment = environment_of(folder);
    environment.wait_for_fonts = [&fonts] { fonts.wait(); };
    frmmain window(environment);
    PaintWatch watch(window);
    window.load();
    watch.wait();
    report_and_end();
}

void measure_processes()
{
    const Catalogue usual({500, 20, 5, 60});
    const Catalogue large({9999, 200, 5, 60});
    const Ratios at_500 = against(QStringLiteral("--bare"), usual);
    const Ratios at_9999 = against(QStringLiteral("--bare"), large);
    const Ratios to_controls = against(QStringLiteral("--plain"), usual);
    constexpr double bound_at_500 = 2;
    constexpr double bound_at_9999 = 3;
    print_ratio("start to first paint, 500 items in 20 categories, 5 lists : bare window", at_500.start,
                bound_at_500);
    print_ratio("processor time of the same", at_500.processor, bound_at_500);
    print_ratio("start to first paint, 500 items : plain controls of these kinds, no data", to_controls.start, 1.2);
    print_ratio("start to first paint, 9,999 items in 200 categories : bare window", at_9999.start, bound_at_9999);
    print_ratio("processor time of the same", at_9999.processor, bound_at_9999);
    print_ratio("peak memory with 9,999 items : bare window", at_9999.memory, 3);
}

} // namespace tarnwick::bench
