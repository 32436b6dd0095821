-- Times the bench function of each script given, as vbs_bench times Bench:
-- five runs, the best processor time (os.clock) printed in vbs_bench's form.
for _, path in ipairs(arg) do
  local bench = dofile(path)
  local best = math.huge
  for _ = 1, 5 do
    local c0 = os.clock()
    bench()
    best = math.min(best, os.clock() - c0)
  end
  local name = path:match("([^/]+)$")
  print(string.format("%-12s cpu %.4f s", name, best))
end
