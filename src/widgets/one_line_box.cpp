#include "widgets/one_line_box.h"

#include "data/text.h"

#include <QLineEdit>
#include <QValidator>

namespace tarnwick {
namespace {

class OneLine : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& caret) const override
    {
        caret = static_cast<int>(one_line(QStringView(text).left(caret)).size());
        text = one_line(text);
        return Acceptable;
    }
};

} // namespace

void keep_one_line(QLineEdit& box)
{
    box.setValidator(new OneLine(&box));
}

} // namespace tarnwick
