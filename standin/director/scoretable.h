#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a performance came to: who painted what, whether the pictures were equal, and the plugin commands by kind as
/// they were sent and received.
class scoretable {
public:
    /// Follows the commands that a player gets: which tool is taken up, and how often it is used.
    void note(const QString& player, const QString& command);
    void addComparison(const QStringList& names, int differentPixels);
    void setCounts(const QString& player, const QMap<int, int>& sent, const QMap<int, int>& received);

    /// Every command that was sent has arrived, once.
    bool isBalanced() const;
    bool allEqual() const;
    QString print() const;

private:
    struct traffic {
        QMap<int, int> sent;
        QMap<int, int> received;
    };
    struct comparison {
        QStringList names;
        int differentPixels = 0; ///< -1 when the sizes differ
        int times = 0; ///< how often in a row they were found equal
    };

    void notePointer(const QString& player, const QStringList& words);
    int total(int kind, QMap<int, int> traffic::*direction) const;
    QString printTraffic() const;

    QStringList order;
    QMap<QString, QString> tools;
    QMap<QString, QMap<QString, int>> strokes;
    QMap<QString, traffic> counts;
    QVector<comparison> comparisons;
};
