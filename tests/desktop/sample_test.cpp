#include "tests/desktop/SampleForm.h"
#include "tests/desktop/Sight.h"

#include "desktop/FormWindow.h"

#include <QtTest/QTest>
#include <doctest/doctest.h>

using namespace rovanta;

TEST_CASE("Every kind of control is seen whole")
{
    SampleForm form;
    form.cmbCustomer.SetListIndex(1);
    form.txtName = "Blue Harbor";
    form.txtPhone = "6155550100";
    form.txtRate = 1234567.891;
    form.txtShare = 0.125;
    form.optClient = true;
    form.vsfgItems.Select(1, 0);
    EventGate gate;
    FormWindow window(form, SampleLayout(), gate);
    window.resize(window.sizeHint());
    window.show();
    REQUIRE(QTest::qWaitForWindowExposed(&window));
    const QStringList flaws = Flaws(window);
    CHECK_MESSAGE(flaws.isEmpty(), flaws.join("\n").toStdString());
    SaveScreenshot(window, "sample");
}
