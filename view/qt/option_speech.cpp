#include "view/qt/option_speech.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QRadioButton>

namespace zol::view::qt {
namespace {

class OptionSpeech : public QAccessibleWidget {
  public:
    explicit OptionSpeech(QRadioButton& button)
        : QAccessibleWidget(&button, QAccessible::RadioButton), button_(button) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button_.isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == toggleAction())
            button_.click();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QRadioButton& button_;
};

QAccessibleInterface* speech_of(const QString&, QObject* object) {
    auto* button = qobject_cast<QRadioButton*>(object);
    return button ? new OptionSpeech(*button) : nullptr;
}

} // namespace

void announce_options_as_options() { QAccessible::installFactory(speech_of); }

} // namespace zol::view::qt
