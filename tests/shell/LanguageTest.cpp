#include "shell/Language.h"

#include "base/Translate.h"
#include "contracts/ShowError.h"
#include "controls/ActivePanel.h"
#include "export/ScriptedDatabase.h"
#include "export/SyntheticSnapshot.h"
#include "export/frmDbExport.h"
#include "help/frmAbout.h"
#include "ops/frmFileInfo.h"
#include "server/frmServer.h"
#include "shell/WindowRig.h"
#include "shell/frmOptions.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDirIterator>
#include <QGroupBox>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTextEdit>
#include <QTimer>
#include <QTranslator>
#include <QXmlStreamReader>

#include <set>

namespace {

// Answers every text in brackets, for the windows and for the model.
class Brackets : public QTranslator {
public:
    Brackets()
    {
        QCoreApplication::installTranslator(this);
        UseTranslator([](const char* context, const char* text) {
            return QCoreApplication::translate(context, text).toStdString();
        });
    }
    ~Brackets() override { UseTranslator(nullptr); }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return u'[' + QString::fromUtf8(text) + u']';
    }
};

// Is there a word outside of all brackets? Those that no translation changes do not count: names of products,
// servers, sites, files and units, and markup.
bool HoldsWords(QString text)
{
    static const QRegularExpression names(
        QStringLiteral("\\b(Zentrel|Quillet|v1|here|nowhere|Docs|Empty|dir|page|list|css|htm|KiB)\\b"));
    static const QRegularExpression markup(QStringLiteral("</?(span|p|b|br)>"));
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{2}"));
    QString outside;
    int depth = 0;
    text.remove(markup);
    for (const auto sign : std::as_const(text)) {
        if (sign == u'[') ++depth;
        if (depth == 0) outside += sign;
        if (sign == u']') --depth;
    }
    return outside.remove(names).contains(word);
}

void ExpectBracketed(const QString& text, const QObject& where, const char* what)
{
    EXPECT_FALSE(HoldsWords(text)) << where.metaObject()->className() << " "
                                   << where.objectName().toStdString() << ", " << what << ": "
                                   << text.toStdString();
}

// The pages of the help are English.
bool IsHelp(const QWidget& widget)
{
    return widget.window()->objectName() == QLatin1String("frmHelp");
}

void CheckItems(const QAbstractItemView& view)
{
    const auto& model = *view.model();
    const bool hasHeader = view.findChild<QHeaderView*>() != nullptr;
    for (int column = 0; column < model.columnCount() && hasHeader; ++column)
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole})
            ExpectBracketed(model.headerData(column, Qt::Horizontal, role).toString(), view, "header");
    if (!IsHelp(view)) ExpectBracketed(QString::fromStdString(Shown(model)), view, "row");
}

void CheckWidget(const QWidget& widget)
{
    const bool isEntry = widget.inherits("QLineEdit") || widget.inherits("QTextEdit");
    for (const auto* const property : {"windowTitle", "toolTip", "whatsThis", "accessibleName",
                                       "accessibleDescription", "text", "title", "placeholderText"})
        if (!isEntry || property != std::string_view("text"))
            ExpectBracketed(widget.property(property).toString(), widget, property);
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget))
        for (int i = 0; i < tabs->count(); ++i)
            ExpectBracketed(tabs->tabText(i) + tabs->tabToolTip(i), widget, "tab");
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < combo->count(); ++i) ExpectBracketed(combo->itemText(i), widget, "item");
    if (const auto* panel = qobject_cast<const ActivePanel*>(&widget))
        ExpectBracketed(QString::fromStdString(panel->Caption()), widget, "caption");
    if (const auto* text = qobject_cast<const QTextEdit*>(&widget); text && !IsHelp(widget))
        ExpectBracketed(text->toPlainText(), widget, "document");
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget); view && view->model())
        CheckItems(*view);
}

void CheckWindow(const QWidget& window)
{
    CheckWidget(window);
    for (const auto* widget : window.findChildren<QWidget*>()) CheckWidget(*widget);
    for (const auto* action : window.findChildren<QAction*>())
        ExpectBracketed(action->text() + action->toolTip(), *action, "action");
}

class LanguageTest : public WindowRig {
public:
    ~LanguageTest() override { Close(); }

    void SetUp() override { DisplayFilled(); }

    Brackets brackets;
};

TEST_F(LanguageTest, EveryTextOfTheMainWindowsCanBeTranslated)
{
    EXPECT_EQ(LabelText("lblTopStrip"), "[here - Local - [2 web sites]]") << "else there is nothing to check";
    for (const char* command :
         {"mnuFile_Report", "mnuTools_PerfCounters", "mnuHelp_Contents", "mnuToolbars_Customize"})
        Trigger(command);
    QTest::qWait(200);  // the report is made beside the window
    for (const auto* key : {"1/Root/v", "1/Root/v/x.css"}) {
        Select(key);
        for (const auto* shown : QApplication::topLevelWidgets()) CheckWindow(*shown);
    }
    EXPECT_GE(QApplication::topLevelWidgets().size(), 5) << "window, report, console, help, toolbar's dialog";
}

TEST_F(LanguageTest, EveryTextOfTheDialogsCanBeTranslated)
{
    CheckWindow(frmOptions(state->settings, boxes));
    CheckWindow(frmAbout({*registry, outside, boxes}));
    frmFileInfo details({state->server, state->cache, boxes, pump, pointer, state->tempFiles}, {});
    details.SetFileInfo({"x.css", "/v/x.css", "/srv/v", {}, 6, 255, 1000, 0.25F, 1, 1});
    CheckWindow(details);
    const SyntheticSnapshot snapshot(10);
    const auto script = std::make_shared<DatabaseScript>();
    CheckWindow(frmDbExport(*registry, snapshot, boxes, nullptr, AccessTo(script)));

    ServerSelection selection(state->transport, state->server, "here", state->settings, {boxes, pointer});
    frmServer sites(selection, nullptr);
    QTimer::singleShot(0, &sites, [&] {
        CheckWindow(sites);
        sites.reject();
    });
    sites.ShowModal();
}

TEST(Language, IsTheFirstOneWantedThatThereIs)
{
    struct Case {
        QStringList wanted;
        const char* name;
        const char* text;
    };
    const Case cases[] = {{{"de-AT", "de", "en"}, "de_AT", "Zugriff verweigert"},
                          {{"en-GB", "en", "de"}, "", "Access denied"},
                          {{"C", "de"}, "", "Access denied"},
                          {{"xx"}, "", "Access denied"}};
    for (const auto& one : cases) {
        const Language language(one.wanted);
        EXPECT_EQ(language.Name(), one.name);
        EXPECT_EQ(Translate("ConnectRoutine", "Access denied"), one.text);
        EXPECT_EQ(QCoreApplication::translate("ConnectRoutine", "Access denied"), one.text);
        EXPECT_EQ(Translate("ConnectRoutine", "A text of no translation"), "A text of no translation");
    }
    EXPECT_EQ(Translate("ConnectRoutine", "Access denied"), "Access denied");
}

// What may not be lost on the way to another language: places for values, a key of a menu item, and the
// blanks and marks at the ends.
std::multiset<QString> Marks(const QString& text)
{
    static const QRegularExpression marks(QStringLiteral("%\\d|^ +| +$|\\.\\.\\.$|:$|\n|&(?=\\S)"));
    std::multiset<QString> found;
    for (auto match = marks.globalMatch(text); match.hasNext();) found.insert(match.next().captured());
    return found;
}

TEST(Translations, KeepPlacesForValuesAndKeysOfMenus)
{
    int texts = 0;
    for (QDirIterator files(QStringLiteral(QUILLET_TRANSLATIONS), {"*.ts"}); files.hasNext();) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        const auto read = [&xml] { return xml.readElementText(QXmlStreamReader::SkipChildElements); };
        QString source;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement) continue;
            if (xml.name() == u"source") source = read();
            if (xml.name() != u"translation") continue;
            EXPECT_TRUE(xml.attributes().isEmpty()) << "unfinished: " << source.toStdString();
            EXPECT_EQ(Marks(read()), Marks(source)) << source.toStdString();
            ++texts;
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    }
    EXPECT_GT(texts, 500);
}

}  // namespace
