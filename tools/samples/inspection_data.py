"""What the inspector found and what the multifunction tester delivered."""

ITEMS = (
    ("Intake and earthing", (
        "Service head and cut-out undamaged", "Meter tails secure and protected", "Earthing conductor present and sized",
        "Main bonding to water", "Main bonding to gas", "Main bonding to structural steel", "Earth terminal accessible",
        "Supply characteristics recorded", "Warning notices in place", "Main switch accessible and working")),
    ("Distribution boards", (
        "Enclosures undamaged and closed", "Barriers and blanks fitted", "Conductors secure in terminals",
        "No signs of heat", "Devices of the correct type", "Devices rated for the conductors",
        "Circuit chart complete", "RCD test buttons operate", "Surge protection indicator in order",
        "Working space in front of boards")),
    ("Circuits", (
        "Conductors identified", "Cables supported along their length", "Cables clear of heat sources",
        "Insulation of live parts undamaged", "Cables in floors protected", "Grommets and glands in place",
        "Protective conductors continuous", "Fire barriers sealed after cabling", "Additional protection by RCD",
        "Segregation from data cabling")),
    ("Accessories and equipment", (
        "Accessories undamaged and secure", "Isolation within reach of machinery", "Emergency stops effective",
        "Outdoor sockets weatherproof", "Luminaires suitable for the place", "Equipment in wet areas suitable",
        "Special locations correct", "Connections of fixed equipment secure", "Switching of motors by contactor",
        "Labels at points of isolation")),
)

OBSERVATIONS = (
    ("2.7", "Chart of DB2 does not show the circuit added for the label printer (DB2, circuit 6).", "C"),
    ("3.8", "Sealing around the trunking between store and office is incomplete.", "C"),
)

# Test date, board, location, circuit, description, wiring, points, live and protective conductor in square
# millimetres, device, rating in amperes, breaking capacity in kiloamperes, RCD in milliamperes, R1+R2, insulation,
# allowed and measured loop impedance, RCD trip time in milliseconds, polarity confirmed.
_ONE = ("20260318", "DB1", "Workshop, north wall")
_TWO = ("20260318", "DB2", "Office corridor")
CIRCUITS = (
    (*_ONE, 1, "Compressor, three phase", "E", 1, "10", "10", "Breaker, type D", 40, 10, "", "0.09", ">999", "0.55", "0.27",
     "", -1),
    (*_ONE, 2, "Case erector, three phase", "D", 1, "6", "6", "Breaker, type C", 32, 10, "", "0.14", "412", "0.68", "0.32",
     "", -1),
    (*_ONE, 3, "Shrink tunnel, three phase", "D", 1, "6", "6", "Breaker, type C", 32, 10, "", "0.16", "287", "0.68",
     "0.34", "", -1),
    (*_ONE, 4, "Bench sockets, ring", "B", 14, "2.5", "2.5", "RCBO, type B", 32, 6, "30", "0.38", ">999", "1.37", "0.56",
     "24.8", -1),
    (*_ONE, 5, "Wall sockets, ring", "B", 10, "2.5", "2.5", "RCBO, type B", 32, 6, "30", "0.41", ">999", "1.37", "0.59",
     "26.1", -1),
    (*_ONE, 6, "High bay lighting, north", "D", 9, "1.5", "1.5", "Breaker, type C", 10, 10, "", "0.74", "650", "2.19",
     "0.92", "", -1),
    (*_ONE, 7, "High bay lighting, south", "D", 9, "1.5", "1.5", "Breaker, type C", 10, 10, "", "0.81", "618", "2.19",
     "0.99", "", -1),
    (*_ONE, 8, "Roller door", "E", 1, "2.5", "2.5", "RCBO, type C", 16, 6, "30", "0.33", ">999", "1.37", "0.51", "21.7",
     -1),
    (*_ONE, 9, "Fire alarm panel", "F", 1, "1.5", "1.5", "Breaker, type B", 6, 10, "", "0.28", ">999", "7.28", "0.46", "",
     -1),
    (*_TWO, 1, "Office sockets, ring", "A", 12, "2.5", "1.5", "RCBO, type B", 32, 6, "30", "0.52", ">999", "1.37", "0.71",
     "27.4", -1),
    (*_TWO, 2, "Office lighting", "A", 11, "1.5", "1.0", "RCBO, type B", 6, 6, "30", "1.12", ">999", "7.28", "1.31",
     "25.2", -1),
    (*_TWO, 3, "Kitchen sockets", "A", 4, "2.5", "1.5", "RCBO, type B", 20, 6, "30", "0.29", ">999", "2.19", "0.47",
     "23.9", -1),
    (*_TWO, 4, "Water heater", "A", 1, "2.5", "1.5", "RCBO, type B", 16, 6, "30", "0.24", "184", "2.73", "0.43", "28.3",
     -1),
    (*_TWO, 5, "Data cabinet", "A", 2, "2.5", "1.5", "RCBO, type C", 16, 6, "30", "0.31", ">999", "1.37", "0.49", "24.0",
     -1),
    (*_TWO, 6, "Label printer", "G", 1, "1.5", "1.5", "RCBO, type B", 10, 6, "30", "0.22", ">999", "4.37", "0.40", "22.6",
     -1),
)
