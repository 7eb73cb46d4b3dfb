// Shows the factor between the unit of the SVG file and the unit chosen for the drawing. It is for
// information only: nothing is drawn with it.

#include "mainWindow.h"

#include "ui_mainWindow.h"

#include <algorithm>

namespace {

struct UnitFactor {
    const char *unit;
    const char *factor;
};

// The texts stay as they are, "Milimeters" and the uneven precision included. Names are compared with the
// text of the combo box: where the user's language has another name, the factor does not change.

/// For an SVG file in feet.
constexpr UnitFactor masterFactorTable[] = {
    {"Inches", "12"},
    {"Feet", "1"},
    {"Unitless", "1"},
    {"Miles", "0.000189394"},
    {"Milimeters", "304.800097536"},
    {"Centimeters", "30.4800097536"},
    {"Meters", "0.3048"},
    {"Kilometers", "0.0003048"},
    {"Microinches", "1.2e+07"},
    {"Mils", "12000"},
    {"Yards", "0.333333"},
    {"Angstroms", "3.048e+09"},
    {"Nanometers", "3.048e+08"},
    {"Microns", "304800"},
    {"Decimeters", "3.048"},
    {"Hectometers", "0.003048"},
    {"Gigameters", "3.048e-10"},
    {"Astronomical", "2.032e-12"},
    {"Parsecs", "9.83226e-18"},
};

/// For an SVG file in inches.
constexpr UnitFactor subFactorTable[] = {
    {"Inches", "1"},
    {"Unitless", "1"},
    {"Feet", "0.0833333"},
    {"Miles", "1.57828e-05"},
    {"Milimeters", "25.4"},
    {"Centimeters", "2.54"},
    {"Meters", "0.0254"},
    {"Kilometers", "2.54e-05"},
    {"Microinches", "1e+06"},
    {"Mils", "1000"},
    {"Yards", "0.0277778"},
    {"Angstroms", "2.54e+08"},
    {"Nanometers", "2.54e+07"},
    {"Microns", "25400"},
    {"Decimeters", "0.254"},
    {"Hectometers", "0.000254"},
    {"Gigameters", "2.54e-11"},
    {"Astronomical", "1.69333e-13"},
    {"Parsecs", "8.19355e-19"},
};

template <std::size_t size>
void showFactor(const UnitFactor (&table)[size], const QComboBox &units, QLineEdit &field)
{
    const QString unit = units.currentText();
    const auto *row = std::find_if(std::begin(table), std::end(table), [&unit](const UnitFactor &candidate) {
        return unit == QLatin1String(candidate.unit);
    });
    if (row != std::end(table))
        field.setText(QLatin1String(row->factor));
}

} // namespace

// Both slots run when the target unit changes. The slot of the checked radio button acts.

void mainWindow::On_master_unit_radioButton_clicked()
{
    if (ui->master_unit_radioButton->isChecked())
        showFactor(masterFactorTable, *ui->units_comboBox, *ui->convert_factor_lineEdit);
}

void mainWindow::On_sub_unit_radioButton_clicked()
{
    if (ui->sub_units_radioButton->isChecked())
        showFactor(subFactorTable, *ui->units_comboBox, *ui->convert_factor_lineEdit);
}
