#include "window/status_panels.h"

#include "widgets/fitted_text.h"
#include "widgets/pictures.h"
#include "household/status.h"
#include "widgets/tool_tip.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStatusBar>

namespace tarnwick {
namespace {

struct Legend {
    StatusCode code;
    const char* text;
    const char* tool_tip;
};

constexpr Legend legends[] = {
    {StatusCode::buy_it_plus, " Buy-it +", "Is active on more than one shopping list"},
    {StatusCode::buy_it, " Buy-it", "Active on one shopping list"},
    {StatusCode::inactive, " Inactive", "Inactive on at least one shopping list"},
    {StatusCode::unlisted, " Unlisted", "Not listed on any shopping list"},
    {StatusCode::non_stock, " Non-stock", "Non-stock item on a recipe"},
};

/// A panel with the picture of the tree's items before its text: box and light tell by their shape too.
class LegendLabel : public QLabel {
public:
    LegendLabel(const Legend& legend, QWidget* parent)
        : QLabel(parent)
        , image_(code_number(legend.code))
    {
        setText(QString::fromUtf8(legend.text));
        setToolTip(QString::fromUtf8(legend.tool_tip));
        setProperty("picture", image_);
        setContentsMargins(gap + list_image_size(ImageList::stock_tree, image_).width(), 0, text_end, 0);
        measure();
    }

    /// Asked for by the bar again and again.
    QSize minimumSizeHint() const override { return least_; }

protected:
    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            measure();
    }
    void paintEvent(QPaintEvent*) override
    {
        const int top = (height() - list_image_size(ImageList::stock_tree, image_).height()) / 2;
        const FittedText shown = fit_text(text(), font(), contentsRect().width());
        QPainter painter(this);
        painter.drawPixmap(gap, top, list_image(ImageList::stock_tree, image_, devicePixelRatioF()));
        painter.setFont(shown.font);
        painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown.text);
    }

private:
    void measure()
    {
        const int words = fontMetrics().horizontalAdvance(text()) * narrowest_type / 100 + 1;
        least_ = {contentsMargins().left() + words + contentsMargins().right(), QLabel::minimumSizeHint().height()};
    }

    static constexpr int gap = 4;
    static constexpr int text_end = 2; ///< behind the text; the next panel begins with its gap
    int image_; ///< of the stock tree
    QSize least_;
};

/// A panel that shows as much of its text as fits, and the beginning of it in any case.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override
    {
        constexpr int least_letters = 6;
        return {least_letters * fontMetrics().averageCharWidth(), QLabel::minimumSizeHint().height()};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (text().isEmpty())
            return;
        const FittedText shown = fit_text(text(), font(), contentsRect().width());
        QPainter painter(this);
        painter.setFont(shown.font);
        painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown.text);
    }
};

constexpr int legend_begin = 2;
constexpr int last_text_end = 5; ///< as far from the window's edge as the first text is

} // namespace

StatusPanels::StatusPanels(QStatusBar& bar)
{
    bar.setObjectName(QStringLiteral("StatusBar1"));
    bar.setAccessibleName(QStringLiteral("Status"));
    bar.setSizeGripEnabled(false);
    bar.setContentsMargins(0, 0, last_text_end, 0);
    panels_[1] = new ElidedLabel(&bar);
    panels_[1]->setTextFormat(Qt::PlainText);
    panels_[1]->setContentsMargins(6, 0, 6, 0);
    bar.addWidget(panels_[1], 1);
    for (size_t i = legend_begin; i < panels_.size(); ++i) {
        panels_[i] = new LegendLabel(legends[i - legend_begin], &bar);
        bar.addPermanentWidget(panels_[i]);
    }
    for (size_t i = 1; i < panels_.size(); ++i)
        panels_[i]->setObjectName(QStringLiteral("StatusBar1(%1)").arg(i));
}

void StatusPanels::set_text(const QString& text)
{
    panels_[1]->setText(text);
    panels_[1]->setToolTip(plain_tool_tip(text));
}

QString StatusPanels::text() const
{
    return panels_[1]->text();
}

void StatusPanels::set_type_size(int points)
{
    for (size_t i = 1; i < panels_.size(); ++i) {
        QFont font = panels_[i]->font();
        font.setPointSize(points);
        panels_[i]->setFont(font);
    }
}

void StatusPanels::set_visible(int panel, bool visible)
{
    panels_.at(static_cast<size_t>(panel))->setVisible(visible);
}

} // namespace tarnwick
