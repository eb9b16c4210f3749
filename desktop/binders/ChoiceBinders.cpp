#include "desktop/binders/ChoiceBinders.h"

#include "desktop/FormWindow.h"
#include "desktop/Look.h"
#include "desktop/binders/DateBox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSizePolicy>
#include <QTabWidget>

namespace rovanta {

ButtonBinder::ButtonBinder(FormWindow& window, Button& button)
    : Binder(window, button), button(button), push(new QPushButton)
{
    SetWidget(push);
    push->setAutoDefault(true);
    push->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(push, &QPushButton::clicked, this, [this] { this->window.Press(&this->button); });
}

void ButtonBinder::Refresh()
{
    push->setDefault(window.Shown().DefaultButton() == &button);
    push->setText(CaptionWithKey());
}

CheckBinder::CheckBinder(FormWindow& window, CheckBox& box, const Node& node)
    : Binder(window, box), box(box), check(new QCheckBox), bare(node.bare)
{
    SetWidget(check);
    check->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(check, &QCheckBox::clicked, this, [this](bool on) {
        Act([&] {
            this->box.SetFocus();
            if (!this->box.ReadOnly())
                this->box = on;
        });
    });
}

void CheckBinder::Refresh()
{
    check->setChecked(box.IsChecked());
    if (!bare)
        check->setText(CaptionWithKey());
}

/// The neighbours among which one is on, so that arrow keys walk through them.
static QButtonGroup& GroupOf(FormWindow& window, const OptionGroup& group)
{
    const QString name = "group" + QString::number(reinterpret_cast<quintptr>(&group));
    auto* found = window.findChild<QButtonGroup*>(name, Qt::FindDirectChildrenOnly);
    if (!found) {
        found = new QButtonGroup(&window);
        found->setObjectName(name);
    }
    return *found;
}

OptionBinder::OptionBinder(FormWindow& window, OptionButton& option, const Node& node)
    : Binder(window, option), option(option), radio(new QRadioButton), bare(node.bare)
{
    SetWidget(radio);
    radio->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    GroupOf(window, option.Group()).addButton(radio);
    connect(radio, &QRadioButton::clicked, this, [this] {
        Act([this] {
            this->option.SetFocus();
            if (!this->option.ReadOnly())
                this->option = true;
        });
    });
}

void OptionBinder::Refresh()
{
    // The toolkit's group always keeps one on; the controls may all be off.
    QButtonGroup* group = radio->group();
    group->setExclusive(false);
    radio->setChecked(option.Value());
    group->setExclusive(true);
    if (!bare)
        radio->setText(CaptionWithKey());
}

DateBinder::DateBinder(FormWindow& window, DatePicker& picker, const Node& node)
    : Binder(window, picker), picker(picker), box(new DateBox)
{
    SetWidget(box);
    box->setFixedWidth(BoxWidth(*box, node.characters > 0 ? node.characters : 10) + 20);
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    box->chosen = [this](DateTime date) { Act([&] { this->picker = date; }); };
}

void DateBinder::Refresh()
{
    box->lineEdit()->setReadOnly(picker.ReadOnly());
    // What is being typed stands until it is a date.
    if (box->hasFocus() && box->Date() == picker.Value())
        return;
    box->ShowDate(picker.Value());
}

void DateBinder::FocusChanged(bool entered)
{
    if (entered)
        box->lineEdit()->selectAll();
    else
        box->Commit();
}

TabsBinder::TabsBinder(FormWindow& window, Tabs& tabs) : Binder(window, tabs), tabs(tabs), pages(new QTabWidget)
{
    SetWidget(pages);
    pages->tabBar()->setDrawBase(false);
    pages->tabBar()->setExpanding(false);
    connect(pages, &QTabWidget::currentChanged, this, [this](int page) {
        if (IsRefreshing() || page < 0)
            return;
        Act([&] { this->tabs.SetPage(page); });
        // A person who turns to a page goes on there.
        if (!this->window.IsDetached() && this->tabs.Page() == page)
            this->window.FocusInside(*pages->widget(page));
    });
}

void TabsBinder::AddPage(QWidget* page)
{
    const QSignalBlocker quiet(pages);
    const auto index = static_cast<std::size_t>(pages->count());
    const std::string caption = index < tabs.Captions().size() ? tabs.Captions()[index] : std::string{};
    pages->addTab(page, WithKey(PlainCaption(caption), window.Keys().FindPage(tabs, index)));
}

void TabsBinder::Refresh()
{
    pages->setCurrentIndex(tabs.Page());
}

}
