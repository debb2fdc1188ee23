# What a person sees of the agent outside its own windows: tray, autostart, file managers, icons.
