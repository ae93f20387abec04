"""Points as the calibrator delivered them: what was applied and what the meter showed."""

# Range, unit, resolution, tolerance in per cent of the value applied, fixed tolerance, applied, reading.
_VOLTS = ("DC voltage, 20 V", "V", "0.001", "0.05", "0.003")
_OHMS = ("Resistance, 2 kΩ", "Ω", "0.1", "0.2", "0.3")
_DEGREES = ("Temperature, Pt100", "°C", "0.1", "0.1", "0.3")
READINGS = (
    (*_VOLTS, "0", "<0.001"), (*_VOLTS, "2", "2.001"), (*_VOLTS, "5", "5.002"), (*_VOLTS, "10", "10.003"),
    (*_VOLTS, "15", "15.006"), (*_VOLTS, "19.5", "19.508"), (*_VOLTS, "-10", "-9.996"), (*_VOLTS, "-19.5", "-19.491"),
    (*_VOLTS, "21", ">19.999"),
    (*_OHMS, "0", "0.1"), (*_OHMS, "100", "100.2"), (*_OHMS, "500", "500.7"), (*_OHMS, "1000", "1001.1"),
    (*_OHMS, "1900", "1902.6"), (*_OHMS, "2500", ">1999.9"),
    (*_DEGREES, "-20", "-20.2"), (*_DEGREES, "0", "0.1"), (*_DEGREES, "25", "25.1"), (*_DEGREES, "50", "50.2"),
    (*_DEGREES, "100", "100.3"), (*_DEGREES, "150", "150.4"), (*_DEGREES, "200", "200.4"),
)
