# Recording combos, and who else has them.
