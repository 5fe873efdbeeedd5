# Runs SCRIPT into a new SQLite file and puts it in the place of DATABASE: whoever looks finds the old one or the new
# one, never half of it.
file(REMOVE "${DATABASE}.new")
execute_process(COMMAND "${SQLITE3}" -bail "${DATABASE}.new" INPUT_FILE "${SCRIPT}" COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${DATABASE}.new" "${DATABASE}")
