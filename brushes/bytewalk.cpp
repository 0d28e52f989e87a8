#include "bytewalk.h"

namespace {

constexpr qint64 blockSize = 65536;

} // namespace

bytewalk::bytewalk(const QString& path)
    : file(path)
{
    over = !file.open(QIODevice::ReadOnly);
}

int bytewalk::next()
{
    if (used == block.size() && !readBlock())
        return 0;
    return static_cast<uchar>(block.at(used++));
}

void bytewalk::skip(qint64 count)
{
    const qint64 inBlock = block.size() - used;
    if (count <= inBlock) {
        used += static_cast<int>(count);
        return;
    }
    used = 0;
    block.clear();
    const qint64 target = file.pos() + (count - inBlock);
    over |= target > file.size();
    file.seek(qMin(target, file.size()));
}

quint32 bytewalk::little(int bytes)
{
    quint32 number = 0;
    for (int i = 0; i < bytes; ++i)
        number |= static_cast<quint32>(next()) << (8 * i);
    return number;
}

quint32 bytewalk::big(int bytes)
{
    quint32 number = 0;
    for (int i = 0; i < bytes; ++i)
        number = number << 8 | static_cast<quint32>(next());
    return number;
}

qint64 bytewalk::passed() const { return file.pos() - (block.size() - used); }

bool bytewalk::readBlock()
{
    used = 0;
    block = file.read(blockSize);
    over |= block.isEmpty();
    return !block.isEmpty();
}
