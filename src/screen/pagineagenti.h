#pragma once

namespace tarvello::controls {
class TabStrip;
}

namespace tarvello::agenti {

// The pages of TAB_AGENTI as the code selects them. A page the code selects does not bring
// the focus moves a person's click brings (page 0 excepted), so the page change's handler is
// told where the change comes from.
class PagineAgenti {
public:
    explicit PagineAgenti(controls::TabStrip& TAB_AGENTI)
        : m_schede(TAB_AGENTI)
    {}
    PagineAgenti(const PagineAgenti&) = delete;
    PagineAgenti& operator=(const PagineAgenti&) = delete;

    void SelezionaTab(short pagina);
    // True only while SelezionaTab changes the page.
    bool CambioTabDaCodice() const { return m_cambioTabDaCodice; }

private:
    controls::TabStrip& m_schede; // Not owned: the screen's.
    bool m_cambioTabDaCodice = false;
};

} // namespace tarvello::agenti
