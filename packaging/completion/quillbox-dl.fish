complete -c quillbox-dl -f
complete -c quillbox-dl -n __fish_use_subcommand -a authorize -d "Make a grant and print its name"
complete -c quillbox-dl -n __fish_use_subcommand -a check -d "Say whether a sign-in works"
complete -c quillbox-dl -n __fish_use_subcommand -a revoke -d "Give a grant back"
complete -c quillbox-dl -n __fish_use_subcommand -a open -d "Open the address on standard input"
complete -c quillbox-dl -n __fish_use_subcommand -s h -l help -d "Print a short help"
complete -c quillbox-dl -n __fish_use_subcommand -l version -d "Print the version"
