#pragma once

#include "controls/PlainLabel.h"
#include "ops/Analysis.h"
#include "ops/LevelList.h"
#include "ops/LevelPlot.h"
#include "ops/StepBar.h"

#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <memory>
#include <optional>

class QGridLayout;

// The dialog with the details of one cached file, and the analysis of what it would come to at each
// compression level. Everything in `host` must outlive it. It may be closed and even deleted while its
// analysis lets messages run.
class frmFileInfo : public QDialog {
    Q_OBJECT

public:
    frmFileInfo(const AnalysisHost& host, FormatLocale locale);
    ~frmFileInfo() override;

    // Shows the dialog, owned by `owner`, until the user closes it; analyse: starts with the analysis. Does
    // nothing without a file, or while a showing is not over. The owner may go before it is over.
    void ShowInfo(QWidget* owner, const std::optional<FileDetails>& file, bool analyse);

    void SetFileInfo(const FileDetails& file);
    void ClearFileInfo();

    // Runs the analysis, once for each showing unless it fails before it has results.
    void cmdCompr_Click();

    QLineEdit* const txtFilePath;
    QLineEdit* const txtLocation;
    StepBar* const prgAnalysis;
    QLabel* const lblAnalysis;
    QLabel* const lblStep;
    LevelList* const lstLevels;
    LevelPlot* const pltLevels;
    QPushButton* const cmdCompr;
    QPushButton* const cmdClose;

protected:
    bool event(QEvent* event) override;

private:
    class Screen;
    static constexpr std::size_t kValues = 6;

    QGroupBox* BuildInformation();
    void AddBox(QGridLayout* rows, const QString& caption, QLineEdit* box);
    void AddValue(QGridLayout* rows, const QString& caption, std::string_view kind);
    QLayout* BuildProgress();
    QGroupBox* BuildResults();
    void LayOut();

    void Prepare(const FileDetails& file);
    void AnalyseWhenShown();
    void ShowProgress(bool isShown);
    void ShowStep(int step);
    void ShowLevel(int level, const LevelFigures& figures);
    void ShowResults();

    const AnalysisHost m_host;
    const FormatLocale m_locale;
    const std::shared_ptr<Analysis> m_analysis;  // outlives a dialog that is deleted while it runs
    std::array<PlainLabel*, kValues> m_values{};
    std::size_t m_valueCount = 0;
    QGroupBox* m_results = nullptr;
    FileDetails m_file;
    bool m_analyseWhenShown = false;
    bool m_isAnalysing = false;
    bool m_hasResults = false;
};
