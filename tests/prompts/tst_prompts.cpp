#include "prompts/heldwindow.h"
#include "prompts/prompts.h"
#include "tests/support/controls.h"
#include "tests/support/whenopen.h"

#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString markup = "<b>nick</b><img src=/dev/zero>";

bool isShown(const QDialog& dialog, const QString& text)
{
    const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
        return label->text() == text && label->textFormat() == Qt::PlainText;
    });
}

// The file dialog hides accept(), which is public in every dialog.
void accept(QDialog& dialog) { dialog.accept(); }

void answer(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
    accept(dialog);
}

} // namespace

class tst_prompts : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void textIsHandedOut();
    void emptyTextIsNoCancel();
    void textPromptShowsForeignNamesAsTheyAre();
    void textPromptKeepsTheSizeOfAPrompt_data();
    void textPromptKeepsTheSizeOfAPrompt();
    void ampersandInALabelIsShown();
    void titleHasRoomAboveAShortLabel();
    void saveFileIsHandedOut();
    void nothingIsAddedToTheNameOfASavedFile();
    void existingFileIsReplacedOnYesOnly();
    void openFileIsHandedOut();
    void openFileStartsAtThePresentOne();
    void openFileStartsInAPresentDirectory();
    void missingStartIsNoHindrance();
    void directoryIsHandedOut();
    void colorIsHandedOut();
    void questionHasYesAndNo();
    void questionShowsForeignNamesAsTheyAre();
    void questionKeepsTheSizeOfABox_data();
    void questionKeepsTheSizeOfABox();
    void cancelledPromptHandsOutNothing_data();
    void cancelledPromptHandsOutNothing();
    void destroyedParentCancelsThePrompt_data();
    void destroyedParentCancelsThePrompt();
    void destroyedParentCancelsTheOverwriteQuestionToo();

private:
    QString pathOf(const char* name) const { return QDir(directory->path()).filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
    QPointer<QWidget> parent;
};

// Asks one of the prompts; true when it was answered.
using prompt = bool (*)(QWidget* parent, const QString& directory);
Q_DECLARE_METATYPE(prompt)

void tst_prompts::init()
{
    directory = std::make_unique<QTemporaryDir>();
    for (const char* name : {"present.png", "other.png"}) {
        QFile file(pathOf(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QDir(directory->path()).mkdir("sub"));
    QDir::setCurrent(directory->path());
    parent = new QWidget;
}

void tst_prompts::cleanup()
{
    delete parent;
    QDir::setCurrent(QDir::rootPath());
    directory.reset();
}

void tst_prompts::textIsHandedOut()
{
    const whenopen<QInputDialog> user([](QInputDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Title"));
        QCOMPARE(dialog.labelText(), QString("Label:"));
        QCOMPARE(dialog.textEchoMode(), QLineEdit::Password);
        QVERIFY(dialog.textValue().isEmpty());
        QTest::keyClicks(dialog.findChild<QLineEdit*>(), "secret");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    const std::optional<QString> text = prompts::askText(parent, "Title", "Label:", QLineEdit::Password);
    QVERIFY(user.ran());
    QCOMPARE(text, std::optional<QString>("secret"));
    QVERIFY(parent->findChildren<QDialog*>().isEmpty());
}

void tst_prompts::emptyTextIsNoCancel()
{
    const whenopen<QInputDialog> user([](QInputDialog& dialog) { dialog.accept(); });
    QCOMPARE(prompts::askText(parent, "Title", "Label:", QLineEdit::Normal), std::optional<QString>(QString()));
}

void tst_prompts::textPromptShowsForeignNamesAsTheyAre()
{
    const whenopen<QInputDialog> user([](QInputDialog& dialog) {
        QVERIFY(isShown(dialog, markup));
        dialog.reject();
    });
    QVERIFY(!prompts::askText(parent, "Title", markup, QLineEdit::Normal));
    QVERIFY(user.ran());
}

void tst_prompts::textPromptKeepsTheSizeOfAPrompt_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("whole");
    QTest::newRow("the longest that a server allows") << QString(40, 'W') << true;
    QTest::newRow("one long word") << QString(100000, 'w') << false;
    QTest::newRow("many words") << QString("word ").repeated(2000) << false;
    QTest::newRow("many lines") << QString("l\n").repeated(500) << false;
    QTest::newRow("few lines") << "a\nb\r\nc" << false;
}

void tst_prompts::textPromptKeepsTheSizeOfAPrompt()
{
    QFETCH(QString, name);
    QFETCH(bool, whole);
    const QString label = "Password for " + name + ':';
    const whenopen<QInputDialog> user([&](QInputDialog& dialog) {
        const QFontMetrics metrics = dialog.fontMetrics();
        QVERIFY(dialog.width() < 130 * metrics.averageCharWidth());
        QVERIFY(dialog.findChild<QLabel*>()->height() < 2 * metrics.height());
        QCOMPARE(dialog.labelText() == label, whole);
        QVERIFY(dialog.labelText().startsWith("Password for ") && dialog.labelText().endsWith(':'));
        dialog.reject();
    });
    prompts::askText(parent, "Title", label, QLineEdit::Normal);
    QVERIFY(user.ran());
}

void tst_prompts::ampersandInALabelIsShown()
{
    const QString name = "R&D";
    const whenopen<QInputDialog> user([&](QInputDialog& dialog) {
        QCOMPARE(dialog.findChild<QLabel*>()->sizeHint(), QLabel(name).sizeHint());
        QCOMPARE(controls::spokenName(dialog.findChild<QLineEdit*>()), name);
        dialog.reject();
    });
    prompts::askText(parent, "Title", name, QLineEdit::Normal);
    QVERIFY(user.ran());
}

void tst_prompts::titleHasRoomAboveAShortLabel()
{
    const QString title = "Type in password " + QString(40, 'W');
    const whenopen<QInputDialog> user([&](QInputDialog& dialog) {
        QVERIFY(dialog.width() > dialog.fontMetrics().horizontalAdvance(title));
        dialog.reject();
    });
    prompts::askText(parent, title, "x", QLineEdit::Normal);
    QVERIFY(user.ran());
}

void tst_prompts::saveFileIsHandedOut()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Caption"));
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog.nameFilters(), QStringList{"PNG-Images (*.png)"});
        answer(dialog, pathOf("new.png"));
    });
    QCOMPARE(prompts::askSaveFile(parent, "Caption", "PNG-Images (*.png)"), pathOf("new.png"));
    QVERIFY(user.ran());
}

void tst_prompts::nothingIsAddedToTheNameOfASavedFile()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) { answer(dialog, pathOf("new")); });
    QCOMPARE(prompts::askSaveFile(parent, "Caption", "PNG-Images (*.png)"), pathOf("new"));
}

void tst_prompts::existingFileIsReplacedOnYesOnly()
{
    // No leads back to the dialog, in which another name may be typed, or the same one again.
    std::unique_ptr<whenopen<QMessageBox>> question;
    std::unique_ptr<whenopen<QFileDialog>> secondTime;
    const whenopen<QFileDialog> firstTime([&](QFileDialog& dialog) {
        question = std::make_unique<whenopen<QMessageBox>>([&](QMessageBox& box) {
            QVERIFY(isShown(box, "present.png already exists. Do you want to replace it?"));
            QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
            secondTime = std::make_unique<whenopen<QFileDialog>>([&](QFileDialog& again) {
                question = std::make_unique<whenopen<QMessageBox>>(
                    [](QMessageBox& boxAgain) { boxAgain.button(QMessageBox::Yes)->click(); });
                answer(again, pathOf("present.png"));
            });
            box.button(QMessageBox::No)->click();
        });
        answer(dialog, pathOf("present.png"));
    });
    QCOMPARE(prompts::askSaveFile(parent, "Caption", "PNG-Images (*.png)"), pathOf("present.png"));
    QVERIFY(secondTime && secondTime->ran());
    QVERIFY(question->ran());
}

void tst_prompts::openFileIsHandedOut()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Caption"));
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptOpen);
        answer(dialog, pathOf("other.png"));
    });
    QCOMPARE(prompts::askOpenFile(parent, "Caption", QString(), "Pictures (*.png)"), pathOf("other.png"));
    QVERIFY(user.ran());
}

void tst_prompts::openFileStartsAtThePresentOne()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) {
        QCOMPARE(dialog.directory().absolutePath(), directory->path());
        QCOMPARE(dialog.selectedFiles(), QStringList{pathOf("present.png")});
        accept(dialog);
    });
    QDir::setCurrent(QDir::rootPath());
    QCOMPARE(prompts::askOpenFile(parent, "Caption", pathOf("present.png"), "Pictures (*.png)"), pathOf("present.png"));
    QVERIFY(user.ran());
}

void tst_prompts::openFileStartsInAPresentDirectory()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) {
        QCOMPARE(dialog.directory().absolutePath(), pathOf("sub"));
        dialog.reject();
    });
    prompts::askOpenFile(parent, "Caption", pathOf("sub"), "Pictures (*.png)");
    QVERIFY(user.ran());
}

void tst_prompts::missingStartIsNoHindrance()
{
    for (const QString& start : {QString(), QString("/nonexistent/a.png"), pathOf("missing.png"), pathOf("sub")}) {
        const whenopen<QFileDialog> user([this](QFileDialog& dialog) { answer(dialog, pathOf("other.png")); });
        QCOMPARE(prompts::askOpenFile(parent, "Caption", start, "Pictures (*.png)"), pathOf("other.png"));
    }
}

void tst_prompts::directoryIsHandedOut()
{
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Caption"));
        QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
        QVERIFY(dialog.testOption(QFileDialog::ShowDirsOnly));
        QCOMPARE(dialog.directory().absolutePath(), directory->path());
        answer(dialog, pathOf("sub"));
    });
    QDir::setCurrent(QDir::rootPath());
    QCOMPARE(prompts::askDirectory(parent, "Caption", directory->path()), pathOf("sub"));
    QVERIFY(user.ran());
}

void tst_prompts::colorIsHandedOut()
{
    const whenopen<QColorDialog> user([](QColorDialog& dialog) {
        QCOMPARE(dialog.currentColor(), QColor(Qt::red));
        dialog.setCurrentColor(Qt::blue);
        dialog.accept();
    });
    QCOMPARE(prompts::askColor(parent, Qt::red), QColor(Qt::blue));
    QVERIFY(user.ran());
}

void tst_prompts::questionHasYesAndNo()
{
    const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, "Title", "Text?"));
    QCOMPARE(box->icon(), QMessageBox::Question);
    QCOMPARE(box->windowTitle(), QString("Title"));
    QCOMPARE(box->text(), QString("Text?"));
    QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box->defaultButton(), box->button(QMessageBox::Yes));
    QCOMPARE(box->parentWidget(), parent.data());

    const whenopen<QMessageBox> user([](QMessageBox& shown) { QTest::keyClick(&shown, Qt::Key_Return); });
    QCOMPARE(box->exec(), static_cast<int>(QMessageBox::Yes));
    const whenopen<QMessageBox> other([](QMessageBox& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    QCOMPARE(box->exec(), static_cast<int>(QMessageBox::No));
}

void tst_prompts::questionShowsForeignNamesAsTheyAre()
{
    const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, "Title", markup));
    QVERIFY(isShown(*box.get(), markup));
}

void tst_prompts::questionKeepsTheSizeOfABox_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one long word") << QString(100000, 'W');
    QTest::newRow("many words") << QString("word ").repeated(2000);
    QTest::newRow("many lines") << QString("l\n").repeated(500);
    QTest::newRow("right to left") << QString::fromUtf8("\xe2\x80\xae\xd7\x90\xd7\x91 abc \xe2\x80\xab").repeated(1000);
}

void tst_prompts::questionKeepsTheSizeOfABox()
{
    QFETCH(QString, name);
    const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, "Title", "Is it " + name + "?"));
    QVERIFY(box->text().startsWith("Is it ") && box->text().endsWith('?'));
    const whenopen<QMessageBox> user([](QMessageBox& shown) {
        QVERIFY(shown.height() < 30 * shown.fontMetrics().height());
        QVERIFY(shown.width() <= 1000);
        shown.reject();
    });
    box->exec();
    QVERIFY(user.ran());
}

void tst_prompts::cancelledPromptHandsOutNothing_data()
{
    QTest::addColumn<prompt>("ask");
    QTest::newRow("text") << prompt([](QWidget* parent, const QString&) {
        return prompts::askText(parent, "Title", "Label:", QLineEdit::Normal).has_value();
    });
    QTest::newRow("file to save") << prompt([](QWidget* parent, const QString&) {
        return !prompts::askSaveFile(parent, "Caption", "PNG-Images (*.png)").isEmpty();
    });
    QTest::newRow("file to open") << prompt([](QWidget* parent, const QString& directory) {
        return !prompts::askOpenFile(parent, "Caption", directory + "/present.png", "Pictures (*.png)").isEmpty();
    });
    QTest::newRow("directory") << prompt([](QWidget* parent, const QString& directory) {
        return !prompts::askDirectory(parent, "Caption", directory).isEmpty();
    });
    QTest::newRow("colour") << prompt(
        [](QWidget* parent, const QString&) { return prompts::askColor(parent, Qt::red).isValid(); });
    QTest::newRow("question") << prompt([](QWidget* parent, const QString&) {
        const heldwindow<QMessageBox> box(prompts::makeQuestion(parent, "Title", "Text?"));
        return box->exec() == QMessageBox::Yes;
    });
}

void tst_prompts::cancelledPromptHandsOutNothing()
{
    QFETCH(prompt, ask);
    const whenopen<QDialog> user([](QDialog& dialog) { dialog.reject(); });
    QVERIFY(!ask(parent, directory->path()));
    QVERIFY(user.ran());
    QVERIFY(parent->findChildren<QDialog*>().isEmpty());
}

void tst_prompts::destroyedParentCancelsThePrompt_data() { cancelledPromptHandsOutNothing_data(); }

void tst_prompts::destroyedParentCancelsThePrompt()
{
    QFETCH(prompt, ask);
    const whenopen<QDialog> user([this](QDialog&) { delete parent; });
    QVERIFY(!ask(parent, directory->path()));
    QVERIFY(user.ran());
    QVERIFY(!parent);
}

void tst_prompts::destroyedParentCancelsTheOverwriteQuestionToo()
{
    const whenopen<QMessageBox> question([this](QMessageBox&) { delete parent; });
    const whenopen<QFileDialog> user([this](QFileDialog& dialog) { answer(dialog, pathOf("present.png")); });
    QVERIFY(prompts::askSaveFile(parent, "Caption", "PNG-Images (*.png)").isEmpty());
    QVERIFY(question.ran());
    QVERIFY(!parent);
}

QTEST_MAIN(tst_prompts)
#include "tst_prompts.moc"
