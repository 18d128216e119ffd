#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "ops/AnalyzeLevel.h"
#include "ops/FileDetails.h"
#include "ops/TempFiles.h"
#include "zentrel/Admin.h"

#include <string>

// What the details dialog and its analysis work with. Everything must outlive both.
struct AnalysisHost {
    zentrel::ServerAdmin& server;
    zentrel::CacheAdmin& cache;
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
    TempFiles& tempFiles;
};

inline constexpr int kAnalysisSteps = 10;  // the file is decompressed, then compressed at nine levels

// The window of an analysis. It may be closed whenever the analysis lets messages run.
class AnalysisScreen {
public:
    virtual ~AnalysisScreen() = default;
    virtual bool IsOpen() const = 0;         // once it is not, the analysis ends and shows nothing any more
    virtual void ShowStep(int step) = 0;     // 1 to kAnalysisSteps begins
    virtual void ShowPart(double part) = 0;  // of that step is done, 0 to 1; called for every block
    virtual void ShowLevel(int level, const LevelFigures& figures) = 0;
    virtual void ShowResults() = 0;  // all levels were tried
    virtual void HideSteps() = 0;    // the analysis is over, whatever came of it
};

// Finds out what a cached file would come to at each compression level. Keeps its compressor and
// decompressor from run to run.
class Analysis {
public:
    explicit Analysis(const AnalysisHost& host) : m_host(host) {}

    // Runs on the calling thread and lets messages run all the while. Tells the user what failed. Leaves no
    // temporary file behind, however it ends.
    void Run(const FileDetails& file, AnalysisScreen& screen);

private:
    void RunLevel(int level, const std::string& file, AnalysisScreen& screen);
    StepProgress ProgressOn(AnalysisScreen& screen) const;
    void Report(const std::string& message, const SystemError& error);

    AnalysisHost m_host;
    zentrel::Compressor m_compressor;
    zentrel::Decompressor m_decompressor;
};
