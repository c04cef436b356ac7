<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Path;

/** Data with which the extension sees more of a template. */
final readonly class SampleData
{
    /**
     * @param list<string> $keys
     * @return array<mixed>
     */
    public static function at(array $keys, mixed $value): array
    {
        foreach (array_reverse($keys) as $key) {
            $value = [$key => $value];
        }

        return (array) $value;
    }

    /**
     * Every loop finds an array: without, it is not compared with the loops inside of it.
     *
     * @return array<mixed>
     */
    public static function forLoopsOf(Template $template): array
    {
        $data = [];
        foreach ($template->tags as $tag) {
            $path = $tag->kind->isLoop() ? new Path($tag->paths()[0]) : null;
            if ($path !== null && $path->loop === null) {
                $data = array_replace_recursive($data, self::at($path->keys, []));
            }
        }

        return $data;
    }
}
