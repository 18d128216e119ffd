#include "export/CacheSnapshot.h"

void CacheFigures::Add(const CacheFigures& other)
{
    count += other.count;
    uncompressedSize += other.uncompressedSize;
    compressedSize += other.compressedSize;
    servedCompressed += other.servedCompressed;
    uncompEquivalent += other.uncompEquivalent;
    totalHits += other.totalHits;
    cacheHits += other.cacheHits;
    overwrites += other.overwrites;
    totalLife += other.totalLife;
    cpuTime += other.cpuTime;
}

double CacheFigures::Ratio() const
{
    return uncompressedSize > 0 ? compressedSize / uncompressedSize : 0;
}
