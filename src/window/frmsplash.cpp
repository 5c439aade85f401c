#include "window/frmsplash.h"

#include "widgets/pictures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace tarnwick {
namespace {

constexpr QSize small_picture(24, 24); // as they are drawn

/// The row of pictures over the program's name.
QHBoxLayout* make_pictures(QWidget& splash)
{
    constexpr int splash_picture = 165;
    constexpr int new_list_picture = 1; // of the toolbar
    constexpr int new_recipe_picture = 5;
    const std::array images
        = {list_icon(ImageList::toolbar, new_list_picture).pixmap(small_picture, splash.devicePixelRatioF()),
           picture(splash_picture, splash.devicePixelRatioF()),
           list_icon(ImageList::toolbar, new_recipe_picture).pixmap(small_picture, splash.devicePixelRatioF())};
    constexpr std::array picture_names{"Shopping list", "Tarnwick", "Recipe"};
    auto* pictures = new QHBoxLayout;
    pictures->setSpacing(16);
    for (size_t i = 0; i < images.size(); ++i) {
        auto* image = new QLabel(&splash);
        image->setObjectName(QStringLiteral("Picture1(%1)").arg(i));
        image->setPixmap(images[i]);
        image->setAccessibleName(QLatin1String(picture_names[i]));
        pictures->addWidget(image, 0, Qt::AlignBottom);
    }
    return pictures;
}

} // namespace

frmSplash::frmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Tarnwick"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(36, 28, 36, 24);
    rows->setSpacing(8);

    QHBoxLayout* pictures = make_pictures(*this);
    rows->addLayout(pictures);
    rows->setAlignment(pictures, Qt::AlignHCenter);

    auto* name = new QLabel(QStringLiteral("Tarnwick"), this);
    name->setObjectName(QStringLiteral("Label1"));
    QFont large = name->font();
    large.setPointSize(20);
    large.setBold(true);
    name->setFont(large);
    rows->addWidget(name, 0, Qt::AlignHCenter);

    const std::array warnings
        = {QStringLiteral("TarnWick encountered an error the last time it ran:"),
           QStringLiteral("Running data integrity check  /"), QStringLiteral("Fixing data integrity errors")};
    for (size_t i = 0; i < warnings.size(); ++i) {
        lblWarning_[i] = new QLabel(warnings[i], this);
        lblWarning_[i]->setObjectName(QStringLiteral("lblWarning(%1)").arg(i));
        lblWarning_[i]->setVisible(false);
        rows->addWidget(lblWarning_[i], 0, Qt::AlignHCenter);
    }

    auto* progress = new QProgressBar(this);
    progress->setObjectName(QStringLiteral("ProgressBar1"));
    progress->setAccessibleName(QStringLiteral("Loading"));
    progress->setTextVisible(false);
    progress->setFixedSize(220, 6);
    rows->addWidget(progress, 0, Qt::AlignHCenter);
    setMinimumWidth(320);
    centre();
}

void frmSplash::show_warnings()
{
    for (QLabel* label : lblWarning_)
        label->setVisible(true);
    centre();
}

/// In the middle of the screen, whoever places windows.
void frmSplash::centre()
{
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmSplash::refresh()
{
    // The window system shows a window only after it has been asked; until then nothing can be painted.
    constexpr int longest_wait_ms = 200;
    QElapsedTimer waited;
    waited.start();
    while (windowHandle() && !windowHandle()->isExposed() && waited.elapsed() < longest_wait_ms)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    repaint();
}

} // namespace tarnwick
