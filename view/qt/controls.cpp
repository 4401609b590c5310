#include "view/qt/controls.h"

#include "view/operator.h"
#include "view/qt/act.h"
#include "view/qt/list_notes.h"
#include "view/qt/movie.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace zol::view::qt {
namespace {

namespace acts = operator_acts;

bool is_enter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// A button whose state only the model changes: a click posts the act and changes nothing yet. Enter
// clicks it, as Space does; in the main window Space is also the shortcut of the fuel changeover.
template <typename Base>
class ModelledButton : public Base {
  public:
    using Base::Base;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (is_enter(*event))
            this->click();
        else
            Base::keyPressEvent(event);
    }
    void nextCheckState() override {}
    // The whole control is clickable, not only the caption.
    bool hitButton(const QPoint& at) const override { return this->rect().contains(at); }
};

// An arrow key moves to the neighbour in the group and selects it.
class OptionFace : public ModelledButton<QRadioButton> {
  public:
    using ModelledButton::ModelledButton;

  private:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Down:
        case Qt::Key_Right: choose_neighbour(1); break;
        case Qt::Key_Up:
        case Qt::Key_Left: choose_neighbour(-1); break;
        default: ModelledButton::keyPressEvent(event);
        }
    }
    void choose_neighbour(qsizetype step) {
        const auto group =
            parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
        qsizetype at = group.indexOf(this);
        do
            at += step;
        while (at >= 0 && at < group.size() && !(group[at]->isVisible() && group[at]->isEnabled()));
        if (at < 0 || at >= group.size()) return;
        group[at]->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        group[at]->click();
    }
};

// A list that reports to the logic that it opens, and that opens on Enter.
class ListFace : public QComboBox {
  public:
    ListFace(Widget& model, QWidget& parent)
        : QComboBox(&parent), model_(model), notes_(new ListNotes(model, *this)) {
        setItemDelegate(notes_);
    }
    void showPopup() override {
        post([&model = model_] { acts::open(model); });
        view()->setMinimumWidth(notes_->wanted_width());
        QComboBox::showPopup();
    }

  private:
    void keyPressEvent(QKeyEvent* event) override {
        if (is_enter(*event))
            showPopup();
        else
            QComboBox::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override {
        QComboBox::paintEvent(event);
        QPainter painter(this);
        notes_->draw_on_closed_list(painter);
    }
    Widget& model_;
    ListNotes* notes_;
};

template <typename Button>
QWidget* make_button(Widget& model, QWidget& parent) {
    auto* button = new Button(&parent);
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [&model] { post([&model] { acts::click(model); }); });
    return button;
}

QWidget* make_command_button(Widget& model, QWidget& parent) {
    auto* button = static_cast<QPushButton*>(make_button<QPushButton>(model, parent));
    button->setAutoDefault(true); // Enter presses the focused button
    return button;
}

QWidget* make_option_button(Widget& model, QWidget& parent) {
    auto* button = static_cast<QRadioButton*>(make_button<OptionFace>(model, parent));
    button->setAutoExclusive(false);
    return button;
}

QWidget* make_label(Widget& model, QWidget& parent) {
    const Look& look = model.look;
    auto* label = new LabelFace(model, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    const auto side = look.align == Align::left     ? Qt::AlignLeft
                      : look.align == Align::centre ? Qt::AlignHCenter
                                                    : Qt::AlignRight;
    label->setAlignment(side | Qt::AlignVCenter);
    return label;
}

QWidget* make_text_box(Widget& model, QWidget& parent) {
    // A field higher than two lines shows notes and is read-only.
    constexpr double two_lines_twips = 600;
    if (model.look.place.height > two_lines_twips) {
        auto* notes = new QPlainTextEdit(&parent);
        notes->setReadOnly(true);
        notes->setTabChangesFocus(true);
        return notes;
    }
    auto* line = new QLineEdit(&parent);
    QObject::connect(line, &QLineEdit::textEdited, line, [&model, line](const QString& text) {
        post_act(model, *line, Aspect::text, [&model, typed = text.toStdString()] {
            being_typed = &model;
            const bool taken = acts::type(model, typed);
            being_typed = nullptr;
            return taken;
        });
    });
    return line;
}

QWidget* make_combo_box(Widget& model, QWidget& parent) {
    auto* combo = new ListFace(model, parent);
    QObject::connect(combo, &QComboBox::activated, combo, [&model, combo](int index) {
        post_act(model, *combo, Aspect::value,
                 [&model, index] { return acts::choose(model, index); });
    });
    return combo;
}

QWidget* make_progress_bar(QWidget& parent) {
    auto* bar = new QProgressBar(&parent);
    bar->setTextVisible(false);
    return bar;
}

} // namespace

QWidget* make_control(Widget& model, QWidget& parent) {
    QWidget* face = nullptr;
    switch (model.kind) {
    case Kind::label: face = make_label(model, parent); break;
    case Kind::command_button: face = make_command_button(model, parent); break;
    case Kind::option_button: face = make_option_button(model, parent); break;
    case Kind::check_box: face = make_button<ModelledButton<QCheckBox>>(model, parent); break;
    case Kind::text_box: face = make_text_box(model, parent); break;
    case Kind::combo_box: face = make_combo_box(model, parent); break;
    case Kind::frame: face = new FrameFace(model, parent); break;
    case Kind::slider: face = new SliderFace(model, parent); break;
    case Kind::progress_bar: face = make_progress_bar(parent); break;
    case Kind::shape: face = new LampFace(model, parent); break;
    case Kind::picture: face = new PictureFace(model, parent); break;
    case Kind::movie: face = make_movie(model, parent); break;
    case Kind::window:
    case Kind::menu:
    case Kind::menu_item:
    case Kind::separator: Q_UNREACHABLE();
    }
    return face;
}

} // namespace zol::view::qt
