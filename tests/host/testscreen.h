#pragma once

#include "src/host/agentiscreen.h"

#include <QEventLoop>
#include <QObject>
#include <QStringList>

namespace tarvello::test {

// A stand-in for the agents screen: it records what CLSMG_AGENTI does to it, loads when its
// window state is first set (giving itself a title of its own, as a start-up does) and, when
// shown modal, waits in an event loop until it is closed.
class TestScreen final : public agenti::AgentiScreen {
public:
    void setActiveInterface(host::Cinterface* module) override
    {
        activeInterface = module;
        calls << QStringLiteral("ActiveInterface");
    }
    void setActiveClass(agenti::CLSMG_AGENTI* module) override
    {
        activeClass = module;
        calls << QStringLiteral("ActiveClass");
    }
    void setWindowState(short state) override
    {
        windowState = state;
        calls << QStringLiteral("WindowState");
        if (!loaded) {
            loaded = true;
            referencesAtLoad = activeInterface && activeClass;
            title = QStringLiteral("title set at load");
        }
    }
    void setTitle(const QString& text) override
    {
        title = text;
        calls << QStringLiteral("Title");
    }
    void show(bool modal) override
    {
        calls << (modal ? QStringLiteral("show modal") : QStringLiteral("show"));
        open = true;
        if (modal)
            m_loop.exec();
        calls << QStringLiteral("show returned");
    }
    void PrimoAgente() override { calls << QStringLiteral("PrimoAgente"); }
    void PrecedenteRamoAgente() override { calls << QStringLiteral("PrecedenteRamoAgente"); }
    void PreviousAgente() override { calls << QStringLiteral("PreviousAgente"); }
    void NextAgente() override { calls << QStringLiteral("NextAgente"); }
    void ProssimoRamoAgente() override { calls << QStringLiteral("ProssimoRamoAgente"); }
    void UltimoAgente() override { calls << QStringLiteral("UltimoAgente"); }
    bool ConfermaCambioDitta() override
    {
        calls << QStringLiteral("ConfermaCambioDitta");
        return confirmsCompanyChange;
    }
    void CambiaDitta(qint32 ditta) override
    {
        calls << QStringLiteral("CambiaDitta %1").arg(ditta);
    }
    void MessaggioUtente(const QString& testo, int stile, const QString& titolo) override
    {
        calls << QStringLiteral("MessaggioUtente %1 %2 %3").arg(titolo).arg(stile).arg(testo);
    }
    QObject* oggettoSchermata(const QString& nome) override
    {
        if (nome.isEmpty())
            return &form;
        return form.findChild<QObject*>(nome);
    }
    void close()
    {
        open = false;
        calls << QStringLiteral("closed");
        m_loop.quit();
    }

    host::Cinterface* activeInterface = nullptr;
    agenti::CLSMG_AGENTI* activeClass = nullptr;
    short windowState = 0;
    QString title;
    bool loaded = false;
    bool referencesAtLoad = false;
    bool open = false;
    QStringList calls;
    bool confirmsCompanyChange = true;
    // The screen's window and its controls, as the layout and script models reach them.
    QObject form;

private:
    QEventLoop m_loop;
};

} // namespace tarvello::test
