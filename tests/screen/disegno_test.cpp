#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/controls/panel.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "src/screen/controlliagenti.h"
#include "src/screen/frmmg_messaggio.h"
#include "src/screen/layoutagenti.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace tarvello::test {

namespace {

// What the designer file says of one widget.
struct Widget {
    QString classe;
    QString nome;
    QString buddy;
    QString testo;
};

// The widgets of the screen's designer file, in document order, and how many pages the tab
// strip's widget holds.
struct Disegno {
    QList<Widget> widget;
    QHash<QString, int> pagine;
};

Disegno leggiDisegno(const QString& nomeFile)
{
    QFile file(QStringLiteral(TARVELLO_SCHEMA_DIR "/../src/screen/") + nomeFile);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + nomeFile.toStdString());
    Disegno disegno;
    QXmlStreamReader xml(&file);
    QStringList genitori;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"widget") {
            const QString nome = xml.attributes().value(QLatin1String("name")).toString();
            if (!genitori.isEmpty())
                ++disegno.pagine[genitori.last()];
            disegno.widget.append(
                {xml.attributes().value(QLatin1String("class")).toString(), nome, {}, {}});
            genitori.append(nome);
        } else if (xml.isEndElement() && xml.name() == u"widget") {
            genitori.removeLast();
        } else if (xml.isStartElement() && xml.name() == u"property" &&
                   xml.attributes().value(QLatin1String("name")) == u"buddy") {
            xml.readNextStartElement();
            disegno.widget.last().buddy = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == u"property" &&
                   xml.attributes().value(QLatin1String("name")) == u"text" &&
                   !disegno.widget.isEmpty()) {
            xml.readNextStartElement();
            disegno.widget.last().testo = xml.readElementText();
        }
    }
    if (xml.hasError())
        throw std::runtime_error(xml.errorString().toStdString());
    return disegno;
}

bool nominaControllo(const QString& nome)
{
    static const QRegularExpression maiuscole(QStringLiteral("^[A-Z][A-Z0-9_]*$"));
    return maiuscole.match(nome).hasMatch();
}

// The widget classes that can show a kind of control, as the shell binds them.
QStringList classiPer(const controls::Control& controllo)
{
    if (qobject_cast<const controls::TreeGrid*>(&controllo))
        return {QStringLiteral("QTreeView")};
    if (qobject_cast<const controls::Grid*>(&controllo))
        return {QStringLiteral("QTableView")};
    if (qobject_cast<const controls::Field*>(&controllo))
        return {QStringLiteral("QLineEdit")};
    if (qobject_cast<const controls::ComboBox*>(&controllo))
        return {QStringLiteral("QComboBox")};
    if (qobject_cast<const controls::CheckBox*>(&controllo))
        return {QStringLiteral("QCheckBox")};
    if (qobject_cast<const controls::Label*>(&controllo) ||
        qobject_cast<const controls::Picture*>(&controllo))
        return {QStringLiteral("QLabel")};
    if (qobject_cast<const controls::Button*>(&controllo))
        return {QStringLiteral("QPushButton"), QStringLiteral("QToolButton")};
    if (qobject_cast<const controls::Panel*>(&controllo))
        return {QStringLiteral("QGroupBox")};
    if (qobject_cast<const controls::TabStrip*>(&controllo))
        return {QStringLiteral("QTabWidget")};
    if (qobject_cast<const controls::MenuButton*>(&controllo))
        return {QStringLiteral("QToolButton")};
    if (qobject_cast<const controls::Navigator*>(&controllo))
        return {QStringLiteral("QWidget")};
    return {};
}

// A screen's models and the designer file that lays them out.
struct Maschera {
    const char* file;
    std::function<std::unique_ptr<controls::Form>()> crea;
};

void PrintTo(const Maschera& maschera, std::ostream* os)
{
    *os << maschera.file;
}

class DisegnoAgenti : public ::testing::TestWithParam<Maschera> {
protected:
    const std::unique_ptr<controls::Form> maschera = GetParam().crea();
    const controls::Form& schermata = *maschera;
    const Disegno disegno = leggiDisegno(QString::fromLatin1(GetParam().file));
};

// A widget named for a control the screen does not have, or of a kind that cannot show it,
// stops the shell from opening the screen at all.
TEST_P(DisegnoAgenti, EveryNamedWidgetShowsAControlOfItsKind)
{
    for (const Widget& widget : disegno.widget) {
        if (!nominaControllo(widget.nome))
            continue;
        const controls::Control* controllo = schermata.control(widget.nome);
        ASSERT_NE(controllo, nullptr) << widget.nome.toStdString();
        EXPECT_TRUE(classiPer(*controllo).contains(widget.classe))
            << widget.nome.toStdString() << " is a " << widget.classe.toStdString();
    }
}

TEST_P(DisegnoAgenti, EveryControlIsPlacedOnceOnTheScreen)
{
    QHash<QString, int> posti;
    for (const Widget& widget : disegno.widget)
        ++posti[widget.nome];
    for (const controls::Control* controllo : schermata.controls())
        EXPECT_EQ(posti.value(controllo->name()), 1) << controllo->name().toStdString();
}

TEST_P(DisegnoAgenti, EveryTabStripHasAPageForEachPageOfTheModel)
{
    for (const controls::Control* controllo : schermata.controls()) {
        if (const auto* schede = qobject_cast<const controls::TabStrip*>(controllo)) {
            EXPECT_EQ(disegno.pagine.value(schede->name()), schede->pageCount());
        }
    }
}

// A caption's access key reaches its field only through a buddy that exists.
TEST_P(DisegnoAgenti, EveryCaptionIsTheBuddyOfAPlacedWidget)
{
    QStringList nomi;
    for (const Widget& widget : disegno.widget)
        nomi << widget.nome;
    for (const Widget& widget : disegno.widget) {
        if (!widget.buddy.isEmpty()) {
            EXPECT_TRUE(nomi.contains(widget.buddy)) << widget.nome.toStdString();
        }
    }
}

// The label beside a field reads the field's own caption, the one its messages name: not an
// abbreviation of it.
TEST_P(DisegnoAgenti, EveryCaptionReadsItsControlsCaption)
{
    for (const Widget& widget : disegno.widget) {
        const controls::Control* controllo =
            widget.buddy.isEmpty() ? nullptr : schermata.control(widget.buddy);
        if (widget.classe == u"QLabel" && controllo && !controllo->caption().isEmpty()) {
            EXPECT_EQ(widget.testo.toStdString(), controllo->caption().toStdString())
                << widget.nome.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Maschere, DisegnoAgenti,
    ::testing::Values(Maschera{"frmmg_agenti.ui",
                               [] {
                                   auto maschera = std::make_unique<controls::Form>(
                                       QStringLiteral("FRMMG_AGENTI"));
                                   agenti::creaControlliAgenti(*maschera);
                                   return maschera;
                               }},
                      Maschera{"frmmg_messaggio.ui",
                               [] {
                                   return std::unique_ptr<controls::Form>(
                                       std::make_unique<agenti::FRMMG_MESSAGGIO>());
                               }}),
    [](const ::testing::TestParamInfo<Maschera>& info) {
        return QString::fromLatin1(info.param.file).section(u'.', 0, 0).toStdString();
    });

// The parts are given their controls when the screen is built: a control the layout lacks
// must stop the building there, named, not fail at the first event that needs it.
TEST(ControlliAgenti, AControlTheLayoutLacksIsNamedWhenTheScreenIsBuilt)
{
    controls::Form schermata(QStringLiteral("FRMMG_AGENTI"));
    agenti::creaControlliAgenti(schermata);
    schermata.control(u"TXT_GGMAT")->setObjectName(QStringLiteral("TXT_ALTRO"));
    try {
        agenti::controlliAgenti(schermata);
        FAIL() << "the screen was built without TXT_GGMAT";
    } catch (const std::logic_error& errore) {
        EXPECT_NE(std::string(errore.what()).find("TXT_GGMAT"), std::string::npos) << errore.what();
    }
}

} // namespace
} // namespace tarvello::test
