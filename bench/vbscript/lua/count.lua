-- Counting loop: 3,000,000 iterations of s = s + i % 7 (count.vbs).
local s
local function bench()
  s = 0
  for i = 1, 3000000 do
    s = s + i % 7
  end
end
return bench
