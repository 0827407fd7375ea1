#include "output/form_fixture.h"

#include "gui/grid_model.h"
#include "wizard/main_form.h"

common::FixtureType FormType(const MainForm& f) {
    using common::FixtureType;
    return f.mirror.Value()       ? FixtureType::kMirror
           : f.movinghead.Value() ? FixtureType::kMovingHead
           : f.otherkind.Value()  ? FixtureType::kOther
                                  : FixtureType::kNone;
}

common::Fixture ReadForm(const MainForm& f) {
    common::Fixture fixture;
    fixture.manufacturer = f.manifacturer.Text();
    fixture.model = f.model.Text();
    fixture.nameOnDesk = f.nameondesk.Text();
    fixture.type = FormType(f);
    fixture.pan = f.degreespan.Text();
    fixture.tilt = f.degreestilt.Text();
    fixture.channels = f.table.model()->Body();
    fixture.channelCount = f.dmxchannels.Caption();
    fixture.patchText = f.patchdisplay.Text();
    fixture.comment = f.morecomment.Text();
    return fixture;
}
