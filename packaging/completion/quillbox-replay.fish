set -l evaluate __fish_seen_subcommand_from evaluate
set -l report __fish_seen_subcommand_from report
set -l either __fish_seen_subcommand_from evaluate report
complete -c quillbox-replay -n "not __fish_seen_subcommand_from script" -f
complete -c quillbox-replay -n __fish_use_subcommand -a evaluate -d "Tell in words what comes of saved reports"
complete -c quillbox-replay -n __fish_use_subcommand -a report -d "Make the page of a saved report"
complete -c quillbox-replay -n __fish_use_subcommand -a script -d "Run the program on a simulated host"
complete -c quillbox-replay -n __fish_use_subcommand -a batch -d "Answer JSON requests"
complete -c quillbox-replay -n __fish_use_subcommand -l version -d "Print the version"
complete -c quillbox-replay -s h -l help -d "Print a short help"
complete -c quillbox-replay -n "$evaluate" -l settings -r -F -d "Settings file of Quillbox"
complete -c quillbox-replay -n "$evaluate" -l account -x -d "Name of the account"
complete -c quillbox-replay -n "$evaluate" -l at -x -d "Time of the evaluation"
complete -c quillbox-replay -n "$evaluate" -l save -d "Write the settings file"
complete -c quillbox-replay -n "$report" -l title -x -d "Title of the report"
complete -c quillbox-replay -n "$report" -l out -r -F -d "File of the page"
complete -c quillbox-replay -n "$either" -l reports -r -F -d "Saved reports"
complete -c quillbox-replay -n "$either" -l region -x -a "en-US en-GB de-DE fr-FR de-CH sv-SE pt-BR" -d "Whose notation"
