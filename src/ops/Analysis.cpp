#include "ops/Analysis.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "contracts/ShowError.h"
#include "ops/CachedFileName.h"

void Analysis::Run(const FileDetails& file, AnalysisScreen& screen)
{
    const auto dir = m_host.cache.GetCacheDir();
    if (!dir) return Report(Translate("Analysis", "Cannot retrieve Zentrel cache directory"), dir.error());
    const auto folder = CacheFolderName(*dir, m_host.server.IsLocal(), m_host.server.ServerName());
    const auto name = CachedFileName(folder, file.CacheFilePath);
    // It stays open: by the time it is read, the objects may be connected to another server.
    const auto source = m_host.cache.OpenCacheFile(file.CacheFilePath);
    if (!source) return Report(FillIn(Translate("Analysis", "Cannot open %1"), {name}), source.error());
    auto made = m_host.tempFiles.GetTempFile();
    if (!made) return Report(FillIn(Translate("Analysis", "Cannot decompress %1"), {name}), made.error());
    TempFile temp(std::move(*made));

    CWaitCursor wait(m_host.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    screen.ShowStep(1);
    m_host.pump.Visit();
    if (!screen.IsOpen()) return;
    const auto unpacked =
        DecompressFile(m_decompressor, **source, temp.Name(), kMostUnpackedBytes, ProgressOn(screen));
    if (unpacked) {
        for (int level = kFirstLevel; level <= kLastLevel && screen.IsOpen(); ++level)
            RunLevel(level, temp.Name(), screen);
        if (screen.IsOpen()) screen.ShowResults();
        temp.Remove();
    } else {
        temp.Remove();  // before the message, which may stand for hours
        if (screen.IsOpen())
            Report(FillIn(Translate("Analysis", "Cannot decompress %1"), {name}), unpacked.error());
    }
    if (screen.IsOpen()) screen.HideSteps();
}

void Analysis::RunLevel(int level, const std::string& file, AnalysisScreen& screen)
{
    screen.ShowStep(level + 1);
    const auto figures = AnalyzeLevel(m_compressor, file, level, ProgressOn(screen));
    if (!screen.IsOpen()) return;
    if (figures) {
        screen.ShowLevel(level, *figures);
    } else {
        const auto& failure = figures.error();
        Report(FillIn(failure.stage == LevelStage::Compress ? Translate("Analysis", "Cannot compress %1")
                                                            : Translate("Analysis", "Cannot access %1"),
                      {file}),
               failure.error);
    }
    m_host.pump.Visit();
}

StepProgress Analysis::ProgressOn(AnalysisScreen& screen) const
{
    return [&screen, &pump = m_host.pump](double part) {
        screen.ShowPart(part);
        pump.Run();
        return screen.IsOpen();
    };
}

void Analysis::Report(const std::string& message, const SystemError& error)
{
    CWaitCursor usual(m_host.pointer);
    usual.ShowCursor(ScreenPointer::Default);  // it is the user who is waited for
    ShowError(m_host.boxes, message, BoxStyle::Exclamation, error);
}
