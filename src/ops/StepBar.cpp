#include "ops/StepBar.h"

#include <QStyleOptionProgressBar>
#include <QStylePainter>

namespace {

constexpr int kParts = 1000;

}  // namespace

StepBar::StepBar(int steps, QWidget* parent) : QProgressBar(parent)
{
    setRange(0, steps);
    setTextVisible(false);
}

void StepBar::ShowStep(int step)
{
    m_step = step;
    m_part = 0;
    setValue(step == 1 ? 0 : step);
    update();
}

void StepBar::ShowPart(double part)
{
    const int parts = static_cast<int>(part * kParts);
    if (parts == m_part) return;
    m_part = parts;
    update();
}

void StepBar::paintEvent(QPaintEvent*)
{
    QStyleOptionProgressBar option;
    initStyleOption(&option);
    option.minimum = 0;
    option.maximum = maximum() * kParts;
    option.progress = (m_step - 1) * kParts + m_part;
    QStylePainter(this).drawControl(QStyle::CE_ProgressBar, option);
}
