<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Tools\Template\Template;

/** A loop's key compared with a text in quotes: to a key, the quotes belong to the text. */
final readonly class QuotedKey implements Rule
{
    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $text = trim($tag->compareText() ?? '');
            if (preg_match('/^\'.*\'$/s', $text) === 1 && new Path($tag->paths()[0])->isKey) {
                $key = substr($text, 1, -1);
                yield $tag->offset => "A key is compared as written: write {{$tag->kind->value} {$tag->paths()[0]} $key}";
            }
        }
    }
}
