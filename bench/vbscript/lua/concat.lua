-- String building: 100,000 pieces of "x" (concat.vbs). Lua's strings are
-- immutable, so its linear way is a table of pieces joined once.
local s
local function bench()
  local t = {}
  for i = 1, 100000 do
    t[i] = "x"
  end
  s = table.concat(t)
end
return bench
