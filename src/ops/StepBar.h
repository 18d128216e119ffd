#pragma once

#include <QProgressBar>

// A progress bar over the steps of an analysis. Its value is the step that is being done; it is filled as
// far as the work is, also within the step.
class StepBar : public QProgressBar {
    Q_OBJECT

public:
    explicit StepBar(int steps, QWidget* parent = nullptr);

    void ShowStep(int step);     // 1 is the first
    void ShowPart(double part);  // of the step, 0 to 1; cheap

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_step = 1;
    int m_part = 0;  // in thousandths
};
