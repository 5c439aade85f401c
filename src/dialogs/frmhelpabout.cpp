#include "dialogs/frmhelpabout.h"

#include "widgets/dialog_font.h"
#include "widgets/message_box.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

#include <SQLiteCpp/Database.h>

namespace tarnwick {
namespace {

const QString web_page = QStringLiteral("https://www.tarnwick.example/");
constexpr QSize icon_size(64, 64);

QLabel* make_text(const QString& name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

QString libraries()
{
    return QStringLiteral("Built with Qt %1 (LGPL 3), SQLite %2 (public domain)\nand SQLiteCpp (MIT).")
        .arg(QLatin1String(qVersion()), QLatin1String(SQLite::getLibVersion()));
}

QLabel* make_name(QWidget* parent)
{
    auto* name = make_text(QStringLiteral("Label1"),
                           QStringLiteral("Tarnwick %1").arg(QStringLiteral(TARNWICK_VERSION)), parent);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    return name;
}

} // namespace

frmhelpabout::frmhelpabout(QWidget* owner, int type_size, const std::function<bool(const QUrl&)>& open_url)
    : QDialog(owner)
{
    setObjectName(QStringLiteral("frmhelpabout"));
    setWindowTitle(QStringLiteral("TarnWick"));
    setModal(true);
    set_dialog_font(*this, type_size);

    auto* image = make_text(QStringLiteral("Picture1"), {}, this);
    image->setAccessibleName(QStringLiteral("Picture of the program"));
    image->setPixmap(QIcon(QStringLiteral(":/icon/tarnwick.svg")).pixmap(icon_size, devicePixelRatioF()));
    auto* name = make_name(this);
    auto* about = make_text(QStringLiteral("Label4"),
                            QStringLiteral("Shopping lists, stock and recipes of one household.\n"
                                           "Free to use, to copy, to change and to pass on."),
                            this);
    auto* built = make_text(QStringLiteral("Label5"), libraries(), this);
    auto* visit = make_text(QStringLiteral("Label2"), QStringLiteral("For more information visit"), this);
    auto* page = make_text(QStringLiteral("Label3"), QStringLiteral("<a href=\"%1\">%1</a>").arg(web_page), this);
    page->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    page->setToolTip(QStringLiteral("Opens the page in your web browser"));
    connect(page, &QLabel::linkActivated, this, [this, open_url] {
        if (!open_url(QUrl(web_page)))
            msg_box(this, QStringLiteral("There was a problem opening the\ncurrent web browser"), box::exclamation,
                    windowTitle());
    });
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(24, 22, 24, 18);
    rows->setHorizontalSpacing(20);
    rows->setVerticalSpacing(10);
    rows->addWidget(image, 0, 0, 3, 1, Qt::AlignTop);
    int row = 0;
    for (QLabel* text : {name, about, built})
        rows->addWidget(text, row++, 1);
    rows->setRowMinimumHeight(row++, 4);
    rows->addWidget(visit, row++, 1);
    rows->addWidget(page, row++, 1, Qt::AlignLeft);
    rows->addWidget(ok, row, 1, Qt::AlignRight);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace tarnwick
