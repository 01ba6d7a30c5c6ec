# Completion of velmora's options in fish.
complete --command velmora --no-files
complete --command velmora --long-option settings --description 'Show the settings'
complete --command velmora --long-option preview --description 'Start a reminder now'
complete --command velmora --long-option help --description 'Describe the options'
complete --command velmora --long-option version --description 'Say the version'
