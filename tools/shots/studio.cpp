#include "shots/studio.h"

#include "app/desktop_environment.h"
#include "window/frmmain.h"
#include "data/schema.h"
#include "widgets/tree_view.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <QUrl>

#include <algorithm>
#include <cstdio>

namespace tarnwick::shots {

Studio::Studio(const QString& program_folder, const QString& pictures)
    : environment_(desktop_environment())
    , household_folder_(program_folder)
    , pictures_(pictures)
{
    environment_.open_url = [](const QUrl&) { return true; };
    environment_.printer = [this] { return std::make_unique<QPdfWriter>(paper_); };
    environment_.end_program = [](int) {};
    use_household();
    QFile file(environment_.database_file());
    if (file.open(QIODevice::ReadOnly))
        household_ = file.readAll();
    else
        fault(QStringLiteral("cannot read ") + file.fileName());
    qApp->installEventFilter(this);
}

Studio::~Studio()
{
    close();
}

void Studio::use_household()
{
    close();
    environment_.program_folder = household_folder_;
    environment_.settings_file = household_folder_ + QStringLiteral("/shots.ini");
}

void Studio::use_empty_folder()
{
    close();
    environment_.program_folder = household_folder_ + QStringLiteral("/empty");
    environment_.settings_file = environment_.program_folder + QStringLiteral("/shots.ini");
    QDir(environment_.program_folder).removeRecursively();
    make_database(environment_.database_file());
}

void Studio::close()
{
    if (main_)
        main_->close();
    main_.reset();
}

void Studio::restore_household()
{
    if (environment_.program_folder != household_folder_)
        return;
    QFile file(environment_.database_file());
    if (!file.open(QIODevice::WriteOnly) || file.write(household_) != household_.size())
        fault(QStringLiteral("cannot write ") + file.fileName());
}

frmmain& Studio::start(const QHash<QString, QString>& prefs, QSize size)
{
    close();
    restore_household();
    {
        Settings settings(environment_.settings_file);
        settings.set_reg();
        settings.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
        constexpr int twips = 15;
        settings.set_pref(QStringLiteral("fwidth"), QString::number(size.width() * twips));
        settings.set_pref(QStringLiteral("fheight"), QString::number(size.height() * twips));
        for (auto pref = prefs.begin(); pref != prefs.end(); ++pref)
            settings.set_pref(pref.key(), pref.value());
    }
    main_ = std::make_unique<frmmain>(environment_);
    main_->load();
    main_->activateWindow();
    if (!QTest::qWaitForWindowExposed(main_.get()))
        fault(QStringLiteral("the main window was not shown"));
    settle();
    return *main_;
}

void Studio::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::qWait(10);
    }
}

QImage Studio::scene()
{
    settle();
    QList<QWidget*> windows;
    QRect bounds;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->isMinimized())
            continue;
        windows.append(window);
        bounds |= window->geometry();
    }
    // The main window lies at the bottom; pop-up windows were opened from what is below them, and the dialog that
    // waits for an answer lies over those that it was opened from.
    const auto height_of = [this](const QWidget* window) {
        if (window == main_.get())
            return 0;
        const Qt::WindowType type = window->windowType();
        if (type == Qt::ToolTip || type == Qt::Popup)
            return type == Qt::ToolTip ? 4 : 3;
        return window == QApplication::activeModalWidget() ? 2 : 1;
    };
    std::stable_sort(windows.begin(), windows.end(),
                     [&](const QWidget* left, const QWidget* right) { return height_of(left) < height_of(right); });
    if (bounds.isEmpty())
        return {};
    const qreal scale = windows.front()->devicePixelRatioF();
    QImage image((QSizeF(bounds.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(QColor(0x60, 0x68, 0x70));
    QPainter painter(&image);
    painter.setPen(QColor(0x40, 0x48, 0x50));
    for (QWidget* window : windows) {
        const QRect place = window->geometry().translated(-bounds.topLeft());
        painter.drawPixmap(place.topLeft(), window->grab());
        // The frame that a window manager would give it, so that dialogs stand out.
        if (window != main_.get())
            painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    return image;
}

void Studio::keep(const QString& name, const QImage& image)
{
    const QString file = QStringLiteral("%1/%2.png").arg(pictures_, name);
    if (image.isNull() || !image.save(file, "PNG", 0))
        fault(QStringLiteral("cannot write ") + file);
    else
        ++taken_;
}

void Studio::shot(const QString& name)
{
    const QImage image = scene();
    if (image.isNull()) {
        fault(name + QStringLiteral(": no window to be seen"));
        return;
    }
    const QString file
        = QStringLiteral("%1/%2-%3.png").arg(pictures_).arg(taken_ + 1, 3, 10, QLatin1Char('0')).arg(name);
    if (!image.save(file)) {
        fault(QStringLiteral("cannot write ") + file);
        return;
    }
    ++taken_;
}

void Studio::command(const QString& name)
{
    auto* action = main_->findChild<QAction*>(name);
    if (!action) {
        fault(QStringLiteral("there is no command ") + name);
        return;
    }
    if (!action->isEnabled()) {
        fault(QStringLiteral("the command %1 is disabled").arg(name));
        return;
    }
    action->trigger();
    settle();
}

void Studio::print(const QString& name, const QString& command_name)
{
    paper_ = QStringLiteral("%1/%2-%3.pdf").arg(pictures_).arg(taken_ + 1, 3, 10, QLatin1Char('0')).arg(name);
    command(command_name);
    settle();
    if (!QFile::exists(paper_)) {
        fault(name + QStringLiteral(": nothing was printed"));
        return;
    }
    ++taken_;
}

void Studio::with_dialog(const std::function<void()>& open, const std::function<void(QDialog&)>& drive)
{
    bool came = false;
    driver_ = [&](QDialog& dialog) {
        came = true;
        settle();
        drive(dialog);
    };
    open();
    settle();
    driver_ = nullptr;
    if (!came)
        fault(QStringLiteral("a dialog did not open"));
}

void Studio::menu_shot(const QString& name, const QString& shot_name)
{
    auto* menu = main_->findChild<QMenu*>(name);
    if (!menu) {
        fault(QStringLiteral("there is no menu ") + name);
        return;
    }
    QMenuBar& bar = *main_->menuBar();
    if (bar.actions().contains(menu->menuAction()))
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu->menuAction()).center());
    else
        menu->popup(main_->mapToGlobal(QPoint(240, 200)));
    if (!menu->isVisible())
        fault(QStringLiteral("the menu %1 did not open").arg(name));
    shot(shot_name);
    QTest::keyClick(menu, Qt::Key_Escape);
    menu->close();
    settle();
}

QWidget* Studio::visible_child(const QString& name, QWidget* parent)
{
    QWidget* from = parent ? parent : main_.get();
    for (auto* child : from->findChildren<QWidget*>(name)) {
        if (child->isVisible())
            return child;
    }
    fault(QStringLiteral("%1 is not to be seen").arg(name));
    return nullptr;
}

void Studio::click(QWidget* widget, QPoint position, Qt::MouseButton button)
{
    if (!widget)
        return;
    QTest::mouseClick(widget, button, Qt::NoModifier, position.isNull() ? widget->rect().center() : position);
    settle();
}

void Studio::click_node(QTreeWidgetItem* node, Qt::MouseButton button)
{
    if (!node)
        return;
    auto& tree = dynamic_cast<TreeView&>(*node->treeWidget());
    tree.ensure_visible(node);
    settle();
    const QRect text = tree.text_rect(node);
    if (text.isNull())
        fault(QStringLiteral("the node '%1' is out of reach").arg(node->text(0)));
    else
        click(tree.viewport(), text.center(), button);
}

QTreeWidgetItem* Studio::node(const QString& text)
{
    TreeView& tree = main_->visible_tree();
    for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
        if ((*it)->text(0) == text)
            return *it;
    }
    fault(QStringLiteral("the tree has no node '%1'").arg(text));
    return nullptr;
}

void Studio::fault(const QString& text)
{
    ++faults_;
    std::fprintf(stderr, "shots: after picture %d: %s\n", taken_, qPrintable(text));
}

void Studio::close_dialog(QDialog* dialog)
{
    if (dialog && dialog->isVisible())
        dialog->reject();
    if (dialog && dialog->isVisible())
        dialog->close();
}

bool Studio::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* dialog = qobject_cast<QDialog*>(watched)) {
            const QPointer<QDialog> shown(dialog);
            QTimer::singleShot(0, this, [this, shown] {
                if (!shown || !shown->isVisible())
                    return;
                if (const auto driver = std::exchange(driver_, nullptr)) {
                    driver(*shown);
                } else if (shown->isModal()) {
                    const auto* box = qobject_cast<QMessageBox*>(shown.data());
                    fault(QStringLiteral("unexpected dialog '%1': %2")
                              .arg(shown->windowTitle(), box ? box->text() : shown->objectName()));
                } else {
                    return;
                }
                close_dialog(shown);
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwick::shots
