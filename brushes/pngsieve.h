#pragma once

#include <QFile>
#include <QIODevice>

#include <vector>

/// A PNG file without the chunks that have no say in the picture. The toolkit unpacks every compressed text of a file,
/// to some megabytes each, as soon as it is asked for the size: a small file with a thousand of them takes gigabytes.
class pngsieve : public QIODevice {
public:
    explicit pngsieve(const QString& path);

    qint64 size() const override;
    bool seek(qint64 pos) override;

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 most) override;

private:
    /// Bytes of the file that are shown one after the other.
    struct span {
        qint64 shownAt;
        qint64 start;
        qint64 length;
    };

    void findSpans(const QString& path);
    void show(qint64 start, qint64 length);

    QFile file;
    std::vector<span> spans;
    qint64 place = 0;
};
