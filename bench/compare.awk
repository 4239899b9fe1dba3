# Reads Google Benchmark's CSV. Benchmarks are named <operation>/<variant>[/<arguments>]; prints those
# with a variant "zor", each other variant beside it.
BEGIN { FS = "," }

/^"/ {
  name = $1
  gsub(/"/, "", name)
  count = split(name, part, "/")
  if (count < 2 || $3 == "") next
  operation = part[1]
  for (i = 3; i <= count; i++) operation = operation "/" part[i]
  if (!(operation in variants)) order[++operations] = operation
  variants[operation] = variants[operation] " " part[2]
  time[operation, part[2]] = $3
  unit[operation, part[2]] = $5
}

END {
  for (i = 1; i <= operations; i++) {
    operation = order[i]
    if (!((operation, "zor") in time)) continue
    ours = time[operation, "zor"]
    count = split(variants[operation], variant, " ")
    for (j = 1; j <= count; j++) {
      theirs = time[operation, variant[j]]
      printf "%-44s %-24s %12.2f %s %8.2f x\n", operation, variant[j], theirs,
             unit[operation, variant[j]], theirs / ours
    }
  }
}
