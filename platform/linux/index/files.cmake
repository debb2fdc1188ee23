# The index of names: targets are found without asking the disk.
