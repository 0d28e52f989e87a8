#include "whiteboard.h"

#include "canvas/paintscene.h"

#include <QToolBar>
#include <QToolButton>

/// All that tells one tool button from another, in the order of the tool bar.
struct whiteboard::toolentry {
    kelvortool tool;
    QToolButton* whiteboard::*button;
    void (whiteboard::*slot)(bool);
    const char* icon;
    const char* toolTip;
};

const whiteboard::toolentry whiteboard::tools[8] = {
    {kelvortool::select, &whiteboard::selectbutton, &whiteboard::onSelectButtonClicked, "select", "Select"},
    {kelvortool::pencil, &whiteboard::pencilbutton, &whiteboard::onPencilButtonClicked, "pencil", "Pencil"},
    {kelvortool::line, &whiteboard::linebutton, &whiteboard::onLineButtonClicked, "line", "Line"},
    {kelvortool::rect, &whiteboard::rectbutton, &whiteboard::onRectButtonClicked, "rect",
     "Rect [Press and hold shift for squares]"},
    {kelvortool::ellipse, &whiteboard::ellipsebutton, &whiteboard::onEllipseButtonClicked, "ellipse",
     "Ellipse [Press and hold shift for circles]"},
    {kelvortool::eraser, &whiteboard::eraserbutton, &whiteboard::onEraserButtonClicked, "eraser", "Eraser"},
    {kelvortool::text, &whiteboard::textbutton, &whiteboard::onTextButtonClicked, "text", "Text"},
    {kelvortool::fill, &whiteboard::fillbutton, &whiteboard::onFillButtonClicked, "fill", "Fill"},
};

namespace {

// The tool in use is to be plain to see, and in a dark palette the style's own sunken look is not: its button is tinted
// half-way to the colour of selections, on which the icon can still be told.
void showInUse(QToolButton* button)
{
    button->setPalette(QPalette());
    if (!button->isChecked())
        return;
    QPalette tinted = button->palette();
    const QColor plain = tinted.color(QPalette::Button);
    const QColor selected = tinted.color(QPalette::Highlight);
    tinted.setColor(QPalette::Button,
                    QColor((plain.red() + selected.red()) / 2, (plain.green() + selected.green()) / 2,
                           (plain.blue() + selected.blue()) / 2));
    button->setPalette(tinted);
}

} // namespace

void whiteboard::buildToolBar()
{
    toolbar = new QToolBar(this);
    toolbar->setOrientation(Qt::Vertical);
    for (const toolentry& entry : tools) {
        auto* button = new QToolButton(toolbar);
        button->setCheckable(true);
        button->setIcon(QIcon(QString::fromLatin1(":/gfx/gfx/%1.png").arg(QLatin1String(entry.icon))));
        button->setToolTip(QLatin1String(entry.toolTip));
        button->setAccessibleName(QLatin1String(entry.toolTip));
        connect(button, &QToolButton::clicked, this, entry.slot);
        toolbar->addWidget(button);
        this->*entry.button = button;
    }
}

// A click on the tool in use puts it away. No button group: in one, a button cannot be switched off again.
void whiteboard::toolToggled(kelvortool tool, bool checked)
{
    for (const toolentry& entry : tools) {
        QToolButton* button = this->*entry.button;
        if (checked && entry.tool != tool)
            button->setChecked(false);
        showInUse(button);
    }
    currentTool = checked ? tool : kelvortool::notool;
    scene->setTool(currentTool);
}

void whiteboard::onSelectButtonClicked(bool checked) { toolToggled(kelvortool::select, checked); }
void whiteboard::onPencilButtonClicked(bool checked) { toolToggled(kelvortool::pencil, checked); }
void whiteboard::onLineButtonClicked(bool checked) { toolToggled(kelvortool::line, checked); }
void whiteboard::onRectButtonClicked(bool checked) { toolToggled(kelvortool::rect, checked); }
void whiteboard::onEllipseButtonClicked(bool checked) { toolToggled(kelvortool::ellipse, checked); }
void whiteboard::onEraserButtonClicked(bool checked) { toolToggled(kelvortool::eraser, checked); }
void whiteboard::onTextButtonClicked(bool checked) { toolToggled(kelvortool::text, checked); }
void whiteboard::onFillButtonClicked(bool checked) { toolToggled(kelvortool::fill, checked); }
void whiteboard::onAirbrushButtonClicked(bool checked) { toolToggled(kelvortool::airbrush, checked); }
