// What must hold of a help file before chmlib may read it: it believes the numbers by which the
// file is compressed, and would divide by zero or write past its buffers where damage has changed
// them.
#pragma once

#include <QByteArray>
#include <QString>

namespace desktop {

/// Where a help file keeps the table for hasSoundBlocks.
inline constexpr char helpBlockTable[] =
    "::DataSpace/Storage/MSCompressed/Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/"
    "InstanceData/ResetTable";

/// The file says how it is compressed, and in numbers that can be. To be asked before chmlib opens
/// it.
bool hasSoundCompression(QString const& path);

/// The table of compressed blocks is one that can be. To be asked before chmlib reads a page.
bool hasSoundBlocks(QByteArray const& table);

} // namespace desktop
